#pragma once

#include <optional>
#include <string>

#include "simulator/card_way.h"
#include "wire/frame.h"

namespace morvane::simulator {

/// Deals, reads, sorts and stacks: start commands, what a run leaves to be fetched, and what is
/// counted.
class RunOrgan {
 public:
  /// `options` as in `IdentityOrgan`; `counters` outlive it too.
  RunOrgan(const Options& options, Counters& counters)
      : options_(options), counters_(counters), run_(options, counters) {}

  /// Whether the plain `command` is one of this organ's and has been obeyed; `reply` is filled
  /// then.
  bool Answer(const wire::Frame& command, CardWay::Time now, wire::Frame& reply);

  /// Whether the plain write frame of the counter has been obeyed.
  bool SetCounter(const wire::Frame& command);

  /// Somebody asks who is there: an error is over, and so is what the next run was to expect.
  void GiveUp();
  /// The power has gone.
  void Forget();

  [[nodiscard]] CardWay& Run() { return run_; }
  [[nodiscard]] const CardWay& Run() const { return run_; }
  /// "idle", "dealing card 12 of 52", "stopped at card 12 of 52 with code 57".
  [[nodiscard]] std::string StateText() const;

 private:
  bool Start(const wire::Frame& command, CardWay::Time now, wire::Frame& reply);
  bool StoreRoute(const wire::Frame& command, wire::Frame& reply);
  bool StartSort(const wire::Frame& command, CardWay::Time now, wire::Frame& reply);
  bool AnswerBoard(wire::Frame& reply) const;
  bool AnswerCounter(const wire::Frame& command, wire::Frame& reply) const;
  bool EraseErrors(const wire::Frame& command, wire::Frame& reply);

  const Options& options_;
  Counters& counters_;
  CardWay run_;
  std::optional<Route> route_;  ///< of the next deal, which is a stacking run or a test then
};

}  // namespace morvane::simulator
