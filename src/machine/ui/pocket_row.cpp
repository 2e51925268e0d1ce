#include "machine/ui/pocket_row.h"

#include <QHBoxLayout>
#include <optional>

#include "machine/machine_run.h"
#include "machine/ui/pocket_gauge.h"
#include "machine/ui/run_widgets.h"

namespace morvane::machine {
namespace {

std::optional<int> CountOf(const MachineRun& run, std::size_t hand) {
  if (!run.Cards().CountsShown) return std::nullopt;
  return run.TheMachine().CardCount[PocketOfHand[hand]];
}

}  // namespace

PocketRow::PocketRow(QWidget* parent) : QWidget(parent) {
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(kRunSpacing);
  for (int hand = kNorth; hand <= kWest; ++hand) {
    auto*& pocket = pockets_[static_cast<std::size_t>(hand)];
    row->addWidget(pocket = new PocketGauge(hand, this));
  }
}

void PocketRow::ShowCounts(const MachineRun& run) {
  const auto mood = run.Running() ? PocketGauge::Mood::kDealing : PocketGauge::Mood::kWaiting;
  for (std::size_t hand = kNorth; hand <= kWest; ++hand) {
    pockets_[hand]->ShowCount(CountOf(run, hand), mood);
  }
}

void PocketRow::ShowHcp(const BoardDisplay& display) {
  for (std::size_t hand = kNorth; hand <= kWest; ++hand) {
    pockets_[hand]->ShowHcp(display.lblHCP[hand]);
  }
}

}  // namespace morvane::machine
