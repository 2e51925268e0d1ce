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
  /// `chosen` gets the place of the option among them, from 0.
  OptionGroup(const char* caption, int columns, std::initializer_list<Option> options,
              std::function<void(int)> chosen, QWidget* parent);

  void Show(int option) { buttons_.button(option)->setChecked(true); }

 private:
  QButtonGroup buttons_;
};

}  // namespace morvane::maintenance
