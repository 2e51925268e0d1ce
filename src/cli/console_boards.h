#pragma once

#include "cli/console_run.h"
#include "machine/board_run.h"
#include "program/program.h"

namespace morvane::cli {

/// Deals or reads the boards of the run's range, one after the other, with a line each.
class ConsoleBoards final : public ConsoleRun {
 public:
  /// What became of each board is added to `report`.
  ConsoleBoards(Program& program, Terminal& terminal, machine::BoardRun& run,
                const RunRequest& request, const MachineSide& side, RunReport& report)
      : ConsoleRun(program.Loop, terminal, run, request, side),
        set_(program.Set),
        run_(run),
        request_(request),
        report_(report) {}

 private:
  void Prepare() override;
  void Start() override;
  [[nodiscard]] std::string Coming() const override;
  [[nodiscard]] std::string Progress() const override;
  void Note(bool ok) override;
  [[nodiscard]] bool More() const override { return run_.Window().Controls.Deal_next; }

  const BoardSet& set_;
  machine::BoardRun& run_;
  const RunRequest& request_;
  RunReport& report_;
};

}  // namespace morvane::cli
