#pragma once

#include <QWidget>

namespace morvane {
class ShownValue;
}

namespace morvane::poker {

class DealPicture;
class Poker;
class PokerButtons;

/// The deal that is shown: `Deal_label`, the walk from deal to deal, `picReq` and `picReq1`.
class DealSide final : public QWidget {
 public:
  DealSide(const Poker& poker, PokerButtons& buttons, QWidget* parent);
  void Show();

 private:
  const Poker& poker_;
  ShownValue* Deal_label_;
  DealPicture* picReq_;
  DealPicture* picReq1_;
};

}  // namespace morvane::poker
