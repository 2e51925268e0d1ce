#include "shell/run_flows.h"

#include "files/save_set.h"
#include "machine/dealing_run.h"
#include "machine/open_link.h"
#include "machine/reading_run.h"
#include "machine/sorting_run.h"
#include "poker/poker.h"
#include "program/has_set.h"
#include "shell/refresh_statistics.h"

namespace morvane::shell {
namespace {

constexpr std::int16_t kRunTimeoutMs = 200;

/// Runs `run` in its window, over the open link, until it has closed.
void RunInWindow(Program& program, machine::Machine& machine, machine::MachineRun& run,
                 const std::unique_ptr<machine::RunView>& window) {
  if (!window) {
    machine.Link.CloseLink();
    program.ShowMessage("      This program has no window for a run.      ", kOkCritical,
                        std::string(run.Words().Error));
    return;
  }
  try {
    run.Open(*window);
    program.Loop.RunUntil([&] { return run.Closed(); });
  } catch (...) {
    run.Exit();
    throw;
  }
  if (!run.Closed()) run.Exit();
}

bool HasSetFor(Program& program, machine::RunKind kind) {
  return HasSet(program, std::string(WordsOf(kind).Error));
}

}  // namespace

void DealFlow(Program& program, machine::Machine& machine, machine::RunMemory& memory,
              machine::RunDialogs& dialogs) {
  program.Status("Dealing");
  if (HasSetFor(program, machine::RunKind::kDeal) &&
      machine::OpenLink(program, machine.Link, kRunTimeoutMs)) {
    machine::DealingRun run(program, machine, memory);
    RunInWindow(program, machine, run, dialogs.OpenDealinProg(run));
  }
  program.Status("Ready");
}

void ReadFlow(Program& program, machine::Machine& machine, machine::RunMemory& memory,
              history::History& history, FlowWindows& windows, const std::function<bool()>& keep) {
  if (program.AnalysisRunning) {
    program.ShowMessage(program.Texts.Msg103, kOkCritical, "Read Error");
    return;
  }
  program.Status("Reading");
  if (HasSetFor(program, machine::RunKind::kRead) &&
      machine::OpenLink(program, machine.Link, kRunTimeoutMs)) {
    machine::ReadingRun run(
        program, machine, memory, [&] { files::SaveBoardSet(program, history); }, keep);
    RunInWindow(program, machine, run, windows.OpenDealinProg(run));
    // Also behind a run that was saved at its end: required.
    program.Set.BoardSetChanged = "1";
    program.Operator.RefreshSet();
  }
  RefreshStatistics(program, windows);
  program.Status("Ready");
}

void SortFlow(Program& program, machine::Machine& machine, machine::RunMemory& memory,
              machine::RunDialogs& dialogs) {
  program.Status("Sorting");
  if (machine::OpenLink(program, machine.Link, kRunTimeoutMs)) {
    machine::SortingRun run(program, machine, memory);
    RunInWindow(program, machine, run, dialogs.OpenSortProg(run));
  }
  program.Status("Ready");
}

void PokerFlow(Program& program, machine::Machine& machine, machine::RunMemory& memory,
               poker::PokerDialog& dialogs) {
  program.Status("Poker dealing");
  if (machine::OpenLink(program, machine.Link, kRunTimeoutMs)) {
    poker::Poker run(program, machine, memory);
    RunInWindow(program, machine, run, dialogs.OpenPoker(run));
  }
  program.Status("Ready");
}

}  // namespace morvane::shell
