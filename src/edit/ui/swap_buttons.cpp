#include "edit/ui/swap_buttons.h"

#include <QGridLayout>
#include <array>

#include "edit/hand_swaps.h"
#include "edit/ui/edit_widgets.h"

namespace morvane::edit {
namespace {

struct Button {
  const char* Caption;
  const char* Tip;
  int Row;
  int Column;
};

constexpr std::array<Button, kSwaps> kButtons{
    {{"N-W", "Exchange North and West", 0, 0},
     {"N-E", "Exchange North and East", 0, 2},
     {"S-E", "Exchange South and East", 2, 2},
     {"S-W", "Exchange South and West", 2, 0},
     {"N-S", "Exchange North and South", 0, 1},
     {"E-W", "Exchange East and West", 1, 1},
     {"CCW", "Rotate hands CounterClockWise: North's cards go to East", 1, 0},
     {"CW", "Rotate hands ClockWise: North's cards go to West", 1, 2}}};

}  // namespace

SwapButtons::SwapButtons(Editor& editor, QWidget* parent) : QGroupBox("Hands", parent) {
  auto* grid = new QGridLayout(this);
  MakeTight(*grid);
  for (int index = 0; index < kSwaps; ++index) {
    const Button& each = kButtons[static_cast<std::size_t>(index)];
    auto* button = NewEditButton("cmdSwap" + QString::number(index), each.Caption, each.Tip, this);
    MakeNarrow(*button);
    connect(button, &QPushButton::clicked, this, [&editor, index] { editor.cmdSwap(index); });
    grid->addWidget(button, each.Row, each.Column);
  }
}

}  // namespace morvane::edit
