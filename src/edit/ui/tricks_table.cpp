#include "edit/ui/tricks_table.h"

#include <QGridLayout>
#include <QLabel>

#include "platform/qt/qt_text.h"
#include "platform/qt/shown_value.h"
#include "platform/qt/suit_text.h"

namespace morvane::edit {
namespace {

constexpr int kGap = 8;
constexpr std::array<const char*, kDenominations> kSpoken{"no-trump", "spades", "hearts",
                                                          "diamonds", "clubs"};

}  // namespace

TricksTable::TricksTable(Editor& editor, QWidget* parent) : QWidget(parent), editor_(editor) {
  auto* grid = new QGridLayout(this);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setHorizontalSpacing(kGap);
  grid->setVerticalSpacing(2);
  AddHeadings(*grid);
  for (int hand = kNorth; hand <= kWest; ++hand) {
    for (std::size_t strain = 0; strain < kDenominations; ++strain) {
      const std::size_t index = TricksIndex(hand, strain);
      const QString name = ToQt(HandName[static_cast<std::size_t>(hand)]) + " " + kSpoken[strain];
      DF_NR_[index] = new ShownValue("DF_NR" + QString::number(index), name, this);
      grid->addWidget(DF_NR_[index], hand, static_cast<int>(strain) + 1, Qt::AlignCenter);
    }
  }
  QSizePolicy policy = sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  setSizePolicy(policy);
}

void TricksTable::AddHeadings(QGridLayout& grid) {
  for (std::size_t strain = 0; strain < kDenominations; ++strain) {
    headings_[strain] = new QLabel(this);
    grid.addWidget(headings_[strain], 0, static_cast<int>(strain) + 1, Qt::AlignCenter);
  }
  headings_[0]->setText("NT");
  for (int hand = kNorth; hand <= kWest; ++hand) {
    grid.addWidget(new QLabel(QString(QChar(HandLetter(hand))), this), hand, 0);
  }
}

void TricksTable::Show() {
  setVisible(editor_.Analyzed());
  for (std::size_t suit = 1; suit <= kSuits; ++suit) {
    headings_[suit]->setText(ColouredSuits(SuitSign(suit), palette()));
  }
  for (std::size_t index = 0; index < kResults; ++index) {
    DF_NR_[index]->Show(QString::number(editor_.Set().Current().Tricks[index]));
  }
}

}  // namespace morvane::edit
