#include "machine/ui/pocket_row.h"

#include <QHBoxLayout>
#include <optional>

#include "machine/machine_run.h"
#include "machine/ui/pocket_gauge.h"
#include "machine/ui/run_widgets.h"
#include "platform/qt/qt_text.h"

namespace morvane::machine {
namespace {

PocketGauge::Kind KindOf(const MachineRun& run, std::size_t hand) {
  const QString name = ToQt(HandName[hand]);
  if (run.Kind() == RunKind::kSort) {
    const QChar letter(HandLetter(static_cast<int>(hand)));
    return {run.CountTarget(), name, QString("Sort") + letter, QString("Lsort") + letter, ""};
  }
  const QString number = QString::number(hand);
  return {run.CountTarget(), name, "lblCnt_" + number, "lblHand_" + number, "lblHCP_" + number};
}

/// Before the first report of a board the counts are blank, of a sort 0: required.
std::optional<int> CountOf(const MachineRun& run, std::size_t hand) {
  const bool zero = run.Kind() == RunKind::kSort && run.Running();
  if (!run.Cards().CountsShown && !zero) return std::nullopt;
  return run.TheMachine().CardCount[PocketOfHand[hand]];
}

/// A run that has begun and has heard nothing of its cards yet has not stopped.
CardFlow FlowOf(const MachineRun& run) {
  const bool begins = run.Running() && !run.Cards().CountsShown;
  const bool underWay = run.LastOutcome() == MachineRun::Outcome::kNone;
  return begins && underWay ? CardFlow::kFalling : run.Flow();
}

}  // namespace

PocketRow::PocketRow(const MachineRun& run, QWidget* parent) : QWidget(parent), run_(run) {
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(kRunSpacing);
  for (std::size_t hand = kNorth; hand <= kWest; ++hand) {
    row->addWidget(pockets_[hand] = new PocketGauge(KindOf(run, hand), this));
  }
}

void PocketRow::ShowCounts() {
  for (std::size_t hand = kNorth; hand <= kWest; ++hand) {
    pockets_[hand]->ShowCount(CountOf(run_, hand), run_.Running(), FlowOf(run_));
  }
}

void PocketRow::ShowHcp(const BoardDisplay& display) {
  for (std::size_t hand = kNorth; hand <= kWest; ++hand) {
    pockets_[hand]->ShowHcp(display.lblHCP[hand]);
  }
}

}  // namespace morvane::machine
