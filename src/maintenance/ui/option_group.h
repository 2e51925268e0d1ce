#pragma once

#include <QButtonGroup>
#include <QGroupBox>
#include <functional>
#include <initializer_list>

namespace morvane::maintenance {

/// A frame with options of which one is chosen, in columns.
class OptionGroup final : public QGroupBox {
 public:
  struct Option {
    const char* Name;
    const char* Caption;
  };
  /// `chosen` gets the place of the option among them, from 0; not of the one that is chosen
  /// already.
  OptionGroup(const char* caption, int columns, std::initializer_list<Option> options,
              std::function<void(int)> chosen, QWidget* parent);

  /// -1: none.
  void Show(int option);
  /// It only shows from now on.
  void KeepReadOnly();

 private:
  void Click(int option);

  QButtonGroup buttons_;
  const std::function<void(int)> chosen_;
  bool readOnly_ = false;
  int option_ = -1;  ///< the one that is chosen
};

}  // namespace morvane::maintenance
