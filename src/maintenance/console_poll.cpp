#include "maintenance/console_poll.h"

#include "machine/gates.h"

namespace morvane::maintenance {
namespace {

using wire::OutputsCommand;

constexpr std::array<std::uint8_t, 3> kGates{OutputsCommand::kGate1, OutputsCommand::kGate2,
                                             OutputsCommand::kGate3};
// The firmware since which there is an answer to a status frame.
constexpr std::uint8_t kMotorsSince = 0x20;
constexpr std::uint8_t kClimateSince = 0x24;
constexpr std::uint8_t kSpareSince = 0x26;
constexpr std::uint8_t kLabelSince = 0x37;

}  // namespace

bool ConsolePoll::Poll(bool feed) { return AskOutputs(NextOutputs(), feed) && AskStatus(); }

std::uint8_t ConsolePoll::NextOutputs() {
  if (!GateTest) {
    gatePhase_ = 0;
    return Outputs;
  }
  if (gatePhase_ == 0) ++gateCycles_;
  const std::uint8_t gate = kGates[static_cast<std::size_t>(gatePhase_)];
  gatePhase_ = (gatePhase_ + 1) % static_cast<int>(kGates.size());
  // The mask is a sum, also where the box of the gate is ticked: required.
  return static_cast<std::uint8_t>(gate + Outputs);
}

bool ConsolePoll::AskOutputs(std::uint8_t outputs, bool feed) {
  const auto reply = link_.Ask(OutputsCommand{outputs, feed});
  if (reply && SensorsLive) readings_.Take(*reply);
  return !link_.LinkFailed();
}

bool ConsolePoll::AskStatus() {
  return Ask(wire::kMotors1And2, kMotorsSince, [&](const auto& r) { readings_.Take(r, 1); }) &&
         Ask(wire::kMotors3And4, kMotorsSince, [&](const auto& r) { readings_.Take(r, 3); }) &&
         Ask(wire::kClimate, kClimateSince, [&](const auto& r) { readings_.Take(r); }) &&
         Ask(wire::kSpareSensor, kSpareSince, [](const auto&) {}) &&
         Ask(wire::kLabelSensor, kLabelSince, [&](const auto& r) { readings_.Take(r); });
}

/// An answer to another selector is none.
template <typename Reply, typename Take>
bool ConsolePoll::Ask(const wire::SensorStatusCommand<Reply>& command, std::uint8_t sinceMinor,
                      Take take) {
  if (!machine::Passes(machine_, {sinceMinor, nullptr})) return true;
  if (const auto reply = link_.Ask(command)) {
    if (reply->Head.Selector == command.Selector) take(*reply);
    readings_.TakeFlipPlate(reply->Head, (Outputs & OutputsCommand::kCamLeds) != 0);
    ++statusAnswers_;
    answered_();
  }
  return !link_.LinkFailed();
}

}  // namespace morvane::maintenance
