#pragma once

#include "cli/console_run.h"
#include "machine/sorting_run.h"

namespace morvane::cli {

/// Sorts once.
class ConsoleSort final : public ConsoleRun {
 public:
  ConsoleSort(EventLoop& loop, Terminal& terminal, machine::SortingRun& run,
              const RunRequest& request, const MachineSide& side, RunReport& report)
      : ConsoleRun(loop, terminal, run, request, side), run_(run), report_(report) {}

 private:
  void Start() override { run_.cmdSort(); }
  [[nodiscard]] std::string Coming() const override { return "the sort"; }
  [[nodiscard]] std::string Progress() const override;
  void Note(bool ok) override;
  [[nodiscard]] bool More() const override { return false; }

  machine::SortingRun& run_;
  RunReport& report_;
};

}  // namespace morvane::cli
