#include "cli/console_windows.h"

#include "cli/console_analysis.h"
#include "cli/console_boards.h"
#include "cli/console_poker.h"
#include "cli/console_sort.h"

namespace morvane::cli {

void ConsoleWindows::RunBy(const RunRequest& request, MachineSide side) {
  request_ = request;
  side_ = std::move(side);
}

void ConsoleWindows::ShowLoadNumber(files::LoadNumber& dialog) {
  if (firstBoard_) dialog.txtFirstBoard = *firstBoard_;
  numbersAsked_ = true;
  dialog.Command1();
}

std::unique_ptr<machine::RunView> ConsoleWindows::OpenDealinProg(machine::BoardRun& run) {
  return std::make_unique<ConsoleBoards>(place_.Prog, place_.Screen, run, request_, side_, report_);
}

std::unique_ptr<machine::RunView> ConsoleWindows::OpenSortProg(machine::SortingRun& run) {
  return std::make_unique<ConsoleSort>(place_.Prog.Loop, place_.Screen, run, request_, side_,
                                       report_);
}

std::unique_ptr<machine::RunView> ConsoleWindows::OpenPoker(poker::Poker& run) {
  return std::make_unique<ConsolePoker>(place_.Prog.Loop, place_.Screen, run, request_, side_,
                                        report_);
}

std::unique_ptr<analysis::DeepFView> ConsoleWindows::OpenDeepF(analysis::DeepF& run) {
  return std::make_unique<ConsoleAnalysis>(place_.Prog.Loop, place_.Screen, run);
}

}  // namespace morvane::cli
