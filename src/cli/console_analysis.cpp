#include "cli/console_analysis.h"

namespace morvane::cli {

void ConsoleAnalysis::Show() {
  progress_.Show(run_.Label() + "  " + std::to_string(static_cast<int>(run_.Progress())) + " %");
  if (run_.IsSolverGone() && !gone_) gone_ = loop_.StartTimer(kGoneMs, [this] { GiveUp(); });
}

void ConsoleAnalysis::GiveUp() {
  const auto once = std::move(gone_);
  Close();
  terminal_.Error("The solver has ended without an answer.\n");
  run_.DF_Cancel();
}

void ConsoleAnalysis::Close() { progress_.Show(""); }

}  // namespace morvane::cli
