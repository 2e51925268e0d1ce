#include "edit/ui/hand_box.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>

#include "edit/board_text.h"
#include "edit/ui/suit_box.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/readable_colour.h"
#include "platform/qt/shown_value.h"
#include "platform/qt/suit_text.h"

namespace morvane::edit {
namespace {

constexpr int kMargin = 6;
constexpr int kSpacing = 3;
constexpr QColor kRight{0, 255, 0};
constexpr QColor kWrong{255, 0, 0};

void Colour(QWidget& label, const QColor& colour) {
  QPalette palette = label.palette();
  palette.setColor(QPalette::WindowText, colour);
  label.setPalette(palette);
}

}  // namespace

HandBox::HandBox(Editor& editor, int hand, QWidget* parent)
    : QFrame(parent), editor_(editor), hand_(hand) {
  setFrameShape(QFrame::StyledPanel);
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  auto* grid = new QGridLayout(this);
  grid->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  grid->setSpacing(kSpacing);
  PlaceSuits(*grid);
  PlaceHeading(*grid);
}

void HandBox::PlaceSuits(QGridLayout& grid) {
  for (int suit = 1; suit <= kSuits; ++suit) {
    auto*& sign = signs_[static_cast<std::size_t>(suit)];
    auto*& box = boxes_[static_cast<std::size_t>(suit)];
    grid.addWidget(sign = new QLabel(SuitSign(static_cast<std::size_t>(suit)), this), suit, 0);
    grid.addWidget(box = new SuitBox(editor_, (hand_ - 1) * kSuits + suit - 1, this), suit, 1);
  }
  grid.setColumnStretch(1, 1);
}

void HandBox::PlaceHeading(QGridLayout& grid) {
  const QString name = ToQt(HandName[static_cast<std::size_t>(hand_)]);
  auto* title = new QLabel(name, this);
  QFont bold = title->font();
  bold.setBold(true);
  title->setFont(bold);
  const QString number = QString::number(hand_);
  lblCnt_ = new ShownValue("lblCnt_" + number, name + " cards", this);
  lblHCP_ = new ShownValue("lblHCP_" + number, name + " points", this);
  lblHCP_->setToolTip("High-card points");
  // The longest, so that nothing moves.
  lblCnt_->setMinimumWidth(fontMetrics().horizontalAdvance(ToQt(CountText(0))));
  auto* row = new QHBoxLayout;
  row->addWidget(title);
  row->addWidget(lblCnt_, 1);
  row->addWidget(lblHCP_);
  grid.addLayout(row, 0, 0, 1, 2);
}

void HandBox::Show() {
  const auto hand = static_cast<std::size_t>(hand_);
  const int cards = editor_.EditBoard().HandCount[hand];
  const QColor ground = palette().color(QPalette::Window);
  Colour(*lblCnt_, ReadableOn(ground, cards == kRanks ? kRight : kWrong));
  lblCnt_->Show(ToQt(CountText(cards)));
  lblHCP_->Show(QString::number(editor_.EditBoard().Hcp[hand]) + " HCP");
  for (std::size_t suit = 1; suit <= kSuits; ++suit) {
    Colour(*signs_[suit], SuitColour(suit, palette()));
    boxes_[suit]->Show();
  }
}

}  // namespace morvane::edit
