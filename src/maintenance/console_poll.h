#pragma once

#include <array>
#include <functional>
#include <string_view>
#include <utility>

#include "maintenance/readings.h"
#include "maintenance/service_link.h"
#include "wire/service_commands.h"

namespace morvane::maintenance {

/// The check boxes of `ConsolePoll::Outputs`, by their bits.
inline constexpr std::array<std::string_view, 8> kOutputNames{
    "Motors",   "Gate1",     "Gate2",           "Gate3",
    "Cam_leds", "Cam_power", "Front_green_led", "Front_Red_Led"};

/// The console's poll: tells the machine which outputs are on and learns what its sensors say, as
/// far as its firmware tells. Whoever polls has the link.
class ConsolePoll {
 public:
  /// `answered` is told of each answer to a status frame.
  ConsolePoll(ServiceLink& link, const machine::Machine& machine, std::function<void()> answered)
      : link_(link), machine_(machine), answered_(std::move(answered)) {}

  std::uint8_t Outputs = 0;  ///< the check boxes, a bit each as in `wire::OutputsCommand`
  bool GateTest = false;     ///< the gates are fired in turn, one a poll
  bool SensorsLive = false;  ///< the machine has been asked what it is: what it says is shown

  /// `feed`: move one card past the camera. False: the link is lost, which the operator has been
  /// told.
  bool Poll(bool feed);
  /// The check boxes alone: no gate is fired, it would stay on until the next poll. False as above.
  bool SendOutputs() { return AskOutputs(Outputs, false); }
  /// The same, and what the sensors say.
  bool Refresh() { return SendOutputs() && AskStatus(); }

  /// `Board_no_txt`, until a label is read again.
  void ForgetBoardNumber() { readings_.Board_no_txt.clear(); }

  [[nodiscard]] const Readings& Now() const { return readings_; }
  /// How many rounds of the gates the test has made: `GateTestText`.
  [[nodiscard]] int GateCycles() const { return gateCycles_; }
  /// How many answers the status frames have got, in all.
  [[nodiscard]] int StatusAnswers() const { return statusAnswers_; }

 private:
  [[nodiscard]] std::uint8_t NextOutputs();
  bool AskOutputs(std::uint8_t outputs, bool feed);
  bool AskStatus();
  template <typename Reply, typename Take>
  bool Ask(const wire::SensorStatusCommand<Reply>& command, std::uint8_t sinceMinor, Take take);

  ServiceLink& link_;
  const machine::Machine& machine_;
  std::function<void()> answered_;
  Readings readings_;
  int gatePhase_ = 0;  ///< whose turn it is
  int gateCycles_ = 0;
  int statusAnswers_ = 0;
};

}  // namespace morvane::maintenance
