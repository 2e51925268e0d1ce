#include "cli/console_windows.h"

namespace morvane::cli {

void ConsoleWindows::DealBy(const DealOptions& options, MachineSide side) {
  deal_ = options;
  side_ = std::move(side);
}

void ConsoleWindows::ShowLoadNumber(files::LoadNumber& dialog) {
  if (firstBoard_) dialog.txtFirstBoard = *firstBoard_;
  numbersAsked_ = true;
  dialog.Command1();
}

std::unique_ptr<machine::RunView> ConsoleWindows::OpenDealinProg(machine::BoardRun& run) {
  return std::make_unique<ConsoleRun>(place_.Prog, place_.Screen, run, deal_, side_, report_);
}

}  // namespace morvane::cli
