#include "poker/ui/deal_side.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

#include "machine/ui/run_widgets.h"
#include "platform/qt/shown_value.h"
#include "poker/poker.h"
#include "poker/ui/deal_picture.h"
#include "poker/ui/poker_buttons.h"

namespace morvane::poker {
namespace {

constexpr qreal kLabelLarger = 1.6;

}  // namespace

DealSide::DealSide(const Poker& poker, PokerButtons& buttons, QWidget* parent)
    : QWidget(parent),
      poker_(poker),
      Deal_label_(new ShownValue("Deal_label", "Deal", this)),
      picReq_(new DealPicture(DealPicture::Part::kPlayers, this)),
      picReq1_(new DealPicture(DealPicture::Part::kShared, this)) {
  Deal_label_->setFont(machine::Enlarged(Deal_label_->font(), kLabelLarger));
  auto* walk = new QHBoxLayout;
  walk->setSpacing(machine::kRunSpacing / 2);
  for (const PokerButton button :
       {PokerButton::First, PokerButton::Prevoius, PokerButton::Nextd, PokerButton::Last}) {
    QPushButton* made = buttons.Make(button, this);
    made->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);  // narrow where the screen is
    made->setMinimumWidth(fontMetrics().horizontalAdvance("Previous") + 2 * machine::kRunSpacing);
    walk->addWidget(made);
  }
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(machine::kRunSpacing / 2);
  column->addWidget(Deal_label_);
  column->addWidget(picReq_, 1);
  column->addWidget(picReq1_, 1);
  column->addLayout(walk);
}

void DealSide::Show() {
  const PokerOrder& order = poker_.Order();
  Deal_label_->Show(order.PokerOrderExists
                        ? QString("Deal: %1 of %2").arg(order.CurrentDeal).arg(order.PokerDealCount)
                        : "No order");
  picReq_->Show(order.Current());
  picReq1_->Show(order.Current());
}

}  // namespace morvane::poker
