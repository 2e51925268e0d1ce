#pragma once

#include <memory>

#include "analysis/deep_f.h"
#include "platform/console/progress_line.h"
#include "platform/event_loop.h"

namespace morvane::cli {

/// An analysis on the terminal: a line of progress, and an end when the solver has died.
class ConsoleAnalysis final : public analysis::DeepFView {
 public:
  static constexpr int kGoneMs = 2000;  ///< a solver that has gone without a word is waited for

  ConsoleAnalysis(EventLoop& loop, Terminal& terminal, analysis::DeepF& run)
      : loop_(loop), terminal_(terminal), run_(run), progress_(terminal) {}

  void Show() override;
  void Close() override;

 private:
  void GiveUp();

  EventLoop& loop_;
  Terminal& terminal_;
  analysis::DeepF& run_;
  ProgressLine progress_;
  std::unique_ptr<Timer> gone_;
};

}  // namespace morvane::cli
