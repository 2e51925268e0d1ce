#pragma once

#include <QButtonGroup>
#include <QWidget>
#include <array>
#include <string>

#include "poker/poker_order.h"

class QFormLayout;
class QGroupBox;
class QRadioButton;

namespace morvane {
class FilteredEdit;
class NumberEdit;
class ShownText;
}  // namespace morvane

namespace morvane::poker {

class Poker;
class PokerButtons;

/// The order: what a new one is to be, its texts, its file and its list, and the cards that it is
/// stacked with.
class OrderBox final : public QWidget {
 public:
  OrderBox(Poker& poker, PokerButtons& buttons, QWidget* parent);

  /// `free`: nothing is under way, so that it can be changed.
  void Show(bool free);
  /// Enter in one of its texts goes on to the next. Whether the focus is in one.
  bool TakeEnter();

 private:
  QGroupBox* MakeNew(PokerButtons& buttons);
  QGroupBox* MakeOrder(PokerButtons& buttons);
  QGroupBox* MakeCardIndex();
  QRadioButton* AddOption(const char* name, const char* caption, QButtonGroup& group, int id);
  void AddText(QFormLayout& form, const char* name, const char* label,
               std::string PokerOrder::*text);

  Poker& poker_;
  NumberEdit* Number_deals_ = nullptr;
  QButtonGroup kind_;  ///< 0 `Random`, 1 `Empty_set`
  struct Text {
    FilteredEdit* Box = nullptr;
    std::string PokerOrder::*Of = nullptr;
  };
  std::array<Text, 3> texts_;
  ShownText* Poker_File_ = nullptr;
  QGroupBox* cardIndex_ = nullptr;
  QButtonGroup index_;  ///< its ids are the setting's values
};

}  // namespace morvane::poker
