#pragma once

#include <QWidget>
#include <functional>

namespace morvane::maintenance {

class Maintenance;
class OptionGroup;

// The groups of options by which cards are told apart; `chosen` as of `OptionGroup`.

[[nodiscard]] OptionGroup* NewNationalGroup(std::function<void(int)> chosen, QWidget* parent);
[[nodiscard]] OptionGroup* NewCardTypeGroup(std::function<void(int)> chosen, QWidget* parent);
[[nodiscard]] OptionGroup* NewFontGroup(std::function<void(int)> chosen, QWidget* parent);

/// The cards that the machine is set up for, but for the size of their index.
class CardPanel final : public QWidget {
 public:
  CardPanel(Maintenance& maintenance, QWidget* parent);
  void Show();

 private:
  Maintenance& maintenance_;
  OptionGroup* national_;
  OptionGroup* cardType_;
  OptionGroup* threshold_;
};

}  // namespace morvane::maintenance
