#pragma once

#include "maintenance/readings.h"
#include "maintenance/service_link.h"
#include "wire/service_commands.h"

namespace morvane::maintenance {

/// The console's poll: tells the machine which outputs are on and learns what its sensors say, as
/// far as its firmware tells.
class ConsolePoll {
 public:
  ConsolePoll(ServiceLink& link, const machine::Machine& machine)
      : link_(link), machine_(machine) {}

  std::uint8_t Outputs = 0;  ///< the check boxes, a bit each as in `wire::OutputsCommand`
  bool GateTest = false;     ///< the gates are fired in turn, one a poll
  bool SensorsLive = false;  ///< the machine is known: what it says is shown

  /// `feed`: move one card past the camera. Does nothing while another procedure has the link;
  /// false when the link was lost, which the operator has been told.
  bool Poll(bool feed);

  [[nodiscard]] const Readings& Now() const { return readings_; }
  /// How many rounds of the gates the test has made: `GateTestText`.
  [[nodiscard]] int GateCycles() const { return gateCycles_; }
  /// How many answers the status frames have got, in all.
  [[nodiscard]] int StatusAnswers() const { return statusAnswers_; }

 private:
  [[nodiscard]] std::uint8_t NextOutputs();
  bool AskOutputs(bool feed);
  bool AskStatus();
  template <typename Reply, typename Take>
  bool Ask(const wire::SensorStatusCommand<Reply>& command, std::uint8_t sinceMinor, Take take);

  ServiceLink& link_;
  const machine::Machine& machine_;
  Readings readings_;
  int gatePhase_ = 0;  ///< whose turn it is
  int gateCycles_ = 0;
  int statusAnswers_ = 0;
};

}  // namespace morvane::maintenance
