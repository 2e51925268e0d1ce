#include "machine/machine.h"

#include <algorithm>

#include "text/text.h"

namespace morvane::machine {

using wire::StatusReply;

std::string_view WordOf(MachineKind kind) {
  constexpr std::array<std::string_view, 3> kWords{"", "simulated", "replayed"};
  return kWords[static_cast<std::size_t>(kind)];
}

std::string Machine::TitleMark() const {
  constexpr std::array<const char*, 3> kMarks{"", " - Simulated machine", " - Replayed machine"};
  return kMarks[static_cast<std::size_t>(kind_)];
}

std::string VersionInHex(std::uint8_t major, std::uint8_t minor) {
  const std::string digits = Hex2(major);
  return (major < 16 ? digits.substr(1) : digits) + "." + Hex2(minor);
}

wire::StatusCommand Machine::Poll() const {
  return {static_cast<std::uint8_t>((PedalFlag != 0 ? wire::StatusCommand::kPedalAck : 0) |
                                    (BoxFlag != 0 ? wire::StatusCommand::kBoxAck : 0))};
}

/// Not 0, so that it is acknowledged; not 1, so that it starts nothing. Required.
void Machine::ForgetStarts() { PedalFlag = BoxFlag = 2; }

bool Machine::VersionProbe() {
  const bool answered = Exchange(wire::VersionCommand{}).has_value();
  MachineState = answered ? kIdle : kNoVersion;
  return answered;
}

std::string Machine::FirmwareVersion() const {
  return std::to_string(Version.FirmwareMajor) + "." + std::to_string(Version.FirmwareMinor >> 4U) +
         std::to_string(Version.FirmwareMinor & 15U);
}

void Machine::ForgetAnother() {
  if (identified_ != Link.UsbProductString) HardwareId = 0;
}

void Machine::BeginExchange() {
  // A late reply of the exchange before must not be taken for this one's.
  if (lateReply_) {
    Link.FlushLink();
  } else if (told_) {
    Link.DrainLink();  // the frame that was told may be on its way yet
  }
  lateReply_ = told_ = false;
  Link.CommErrorCount = 0;
}

void Machine::EndTry(int attempt) {
  Link.CommErrorCount = static_cast<std::int16_t>(attempt);
  ExpectLateReply();
}

void Machine::FillRandom(std::span<std::uint8_t> bytes) {
  for (std::uint8_t& byte : bytes) byte = static_cast<std::uint8_t>(255 * random_.Random());
}

void Machine::Take(const StatusReply& reply) {
  if (MachineState == kBusy) {
    std::copy(reply.Pocket.begin() + 1, reply.Pocket.end(), CardCount.begin() + 1);
  }
  MachineState = reply.State == StatusReply::kIdle       ? kIdle
                 : reply.State > StatusReply::kLastError ? kBusy
                                                         : kError;
  MachineError = reply.State;
  TakePedalAndBox(reply);
}

void Machine::TakePedalAndBox(const StatusReply& reply) {
  PedalFlag = reply.Pedal ? 1 : 0;
  BoxFlag = reply.BoardInserted ? 1 : 0;
  if (reply.BoardInserted) BoxInTicks = BoxOutTicks;
  if (reply.SlotActive) BoxOutTicks = 0;
}

void Machine::Take(const wire::IdentityReply& reply) {
  if (reply.Page != 1) return;
  SerialNumber = reply.High;
  HardwareId = reply.Low;
  identified_ = Link.UsbProductString;
}

std::string StatusText(std::int32_t machineState) {
  switch (machineState) {
    case Machine::kNotConnected:
    case Machine::kNoVersion:
      return "Down";
    case Machine::kIdle:
      return "Idle";
    case Machine::kBusy:
      return "Busy";
    case Machine::kError:
      return "Error";
    default:
      return "Illegal (" + std::to_string(machineState) + ")";
  }
}

}  // namespace morvane::machine
