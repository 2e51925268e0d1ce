#include "edit/ui/rank_buttons.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <array>

#include "edit/ui/edit_widgets.h"

namespace morvane::edit {
namespace {

constexpr int kSpacing = 2;
constexpr std::array<const char*, kRanks> kRankNames{"Ace",  "King",  "Queen", "Jack", "Ten",
                                                     "Nine", "Eight", "Seven", "Six",  "Five",
                                                     "Four", "Three", "Two"};

}  // namespace

RankButtons::RankButtons(Editor& editor, const std::function<void()>& pressed, QWidget* parent)
    : QWidget(parent) {
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(kSpacing);
  for (int index = 0; index < kRanks; ++index) {
    const auto rank = static_cast<std::size_t>(index);
    auto* button =
        NewEditButton("cmdCard" + QString::number(index), "&" + QString(QChar(CardLetters[rank])),
                      QString("Insert card ") + kRankNames[rank], this);
    MakeNarrow(*button);
    connect(button, &QPushButton::clicked, this, [&editor, pressed, index] {
      editor.cmdCard(index);
      pressed();
    });
    row->addWidget(button, 1);
  }
}

}  // namespace morvane::edit
