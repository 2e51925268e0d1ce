#pragma once

#include "simulator/card_run.h"
#include "wire/frame.h"

namespace morvane::simulator {

/// Deals, reads and sorts: start commands, and what a run leaves to be fetched.
class RunOrgan {
 public:
  explicit RunOrgan(const Options& options) : run_(options) {}

  /// Whether the plain `command` is one of this organ's and has been obeyed; `reply` is filled
  /// then.
  bool Answer(const wire::Frame& command, CardRun::Time now, wire::Frame& reply);

  [[nodiscard]] CardRun& Run() { return run_; }
  [[nodiscard]] const CardRun& Run() const { return run_; }
  /// "idle", "dealing card 12 of 52", "stopped at card 12 of 52 with code 57".
  [[nodiscard]] std::string StateText() const;

 private:
  bool Start(const wire::Frame& command, CardRun::Time now, wire::Frame& reply);
  bool StartSort(const wire::Frame& command, CardRun::Time now, wire::Frame& reply);
  bool AnswerBoard(wire::Frame& reply) const;

  CardRun run_;
};

}  // namespace morvane::simulator
