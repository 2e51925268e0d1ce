#pragma once

#include "cli/console_run.h"
#include "poker/poker.h"

namespace morvane::cli {

/// Stacks the deals of the request's order in four runs each, or reads them where they are empty,
/// and says between the runs what is to be done with the piles.
class ConsolePoker final : public ConsoleRun {
 public:
  ConsolePoker(EventLoop& loop, Terminal& terminal, poker::Poker& run, const RunRequest& request,
               const MachineSide& side, RunReport& report)
      : ConsoleRun(loop, terminal, run, request, side),
        run_(run),
        request_(request),
        report_(report) {}

 private:
  void Prepare() override;
  void Start() override { run_.Press(run_.NextButton()); }
  [[nodiscard]] std::string Coming() const override;
  [[nodiscard]] std::string Progress() const override;
  void Note(bool ok) override;
  [[nodiscard]] bool More() const override;

  // Only the operator of the simulated machine carries the piles by himself.
  [[nodiscard]] bool NeedsAPerson() const override { return !side_.PressPedal; }
  [[nodiscard]] std::string Invitation() const override;
  [[nodiscard]] bool TakesEnter() const override { return !request_.Auto; }
  void Enter() override { Start(); }

  [[nodiscard]] std::string Verdict() const;

  poker::Poker& run_;
  const RunRequest& request_;
  RunReport& report_;
};

}  // namespace morvane::cli
