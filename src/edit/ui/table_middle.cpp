#include "edit/ui/table_middle.h"

#include <QVBoxLayout>

#include "edit/board_text.h"
#include "model/ui/compass.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/shown_value.h"
#include "platform/qt/suit_text.h"

namespace morvane::edit {

TableMiddle::TableMiddle(Editor& editor, QWidget* parent)
    : QWidget(parent), editor_(editor), compass_(new Compass(this)) {
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(2);
  column->addWidget(compass_, 1);
  constexpr std::array<const char*, kSuits + 1> kNames{"", "Missing spades", "Missing hearts",
                                                       "Missing diamonds", "Missing clubs"};
  for (std::size_t suit = 1; suit <= kSuits; ++suit) {
    auto*& label = missing_[suit];
    label = new ShownValue("lblMissing_" + QString::number(suit), kNames[suit], this);
    label->setTextFormat(Qt::RichText);
    label->setToolTip("Cards that nobody holds");
    column->addWidget(label);
  }
  setMinimumWidth(fontMetrics().horizontalAdvance(SuitSign(1) + " " + ToQt(CardLetters)));
}

void TableMiddle::Show() {
  const int number = editor_.Set().CurrentBoard;
  const Board& board = editor_.EditBoard();
  compass_->Show(BoardVul(board, number), BoardDealer(board, number));
  for (std::size_t suit = 1; suit <= kSuits; ++suit) {
    const QString cards = ToQt(MissingText(board, static_cast<int>(suit)));
    missing_[suit]->Show(ColouredSuits(SuitSign(suit) + " " + cards, palette()));
  }
}

}  // namespace morvane::edit
