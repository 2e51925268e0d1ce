#include "bridges/trace/trace_question.h"

#include <algorithm>
#include <array>
#include <span>

#include "text/text.h"
#include "wire/frame_text.h"
#include "wire/hands_left_out.h"
#include "wire/same_command.h"

namespace morvane::bridges {
namespace {

/// By `Operation`, how many of its numbers are arguments; the others came of it.
constexpr std::array<std::size_t, 14> kArguments{0, 0, 0, 2, 1, 2, 2, 2, 3, 1, 2, 3, 1, 0};

std::span<const std::uint32_t> ArgumentsOf(const TraceLine& line) {
  return std::span(line.Numbers).first(kArguments[static_cast<std::size_t>(line.What)]);
}

bool SameBytes(const TraceLine& one, const TraceLine& other) {
  const auto command = CommandIn(one);
  const auto otherCommand = CommandIn(other);
  if (command && otherCommand) return wire::SameCommand(*command, *otherCommand);
  return one.Bytes == other.Bytes;
}

std::string SpacedHex(std::span<const std::uint8_t> bytes) {
  std::string text;
  for (const std::uint8_t byte : bytes) text += " " + Hex2(byte);
  return text;
}

std::string SentText(const TraceLine& line) {
  const auto command = CommandIn(line);
  if (!command) return "bytes that are no frame:" + SpacedHex(line.Bytes);
  const auto bytes = std::span(*command).first(line.Bytes.size());
  return wire::CommandText(*command) + ":" + SpacedHex(bytes);
}

std::string PlaceOfDifference(const TraceLine& traced, const TraceLine& asked) {
  const auto command = CommandIn(traced);
  const auto otherCommand = CommandIn(asked);
  if (!command || !otherCommand) return "";
  const auto at = wire::FirstDifference(*command, *otherCommand);
  return at ? "\nThey differ at byte " + std::to_string(*at) + "." : "";
}

}  // namespace

std::optional<wire::Frame> CommandIn(const TraceLine& line) {
  const std::size_t size = line.Bytes.size();
  if (size != wire::kShortFrame && size != wire::kLongFrame) return std::nullopt;
  wire::Frame frame{};
  std::copy(line.Bytes.begin(), line.Bytes.end(), frame.begin());
  if (!wire::Unscramble(std::span(frame).first(size), wire::kStepToMachine)) return std::nullopt;
  wire::ClearCheckByte(frame);
  if (wire::FrameSize(wire::CodeOf(frame)) != size) return std::nullopt;
  return frame;
}

bool SameQuestion(const TraceLine& one, const TraceLine& other) {
  if (one.What != other.What) return false;
  const auto arguments = ArgumentsOf(one);
  const auto others = ArgumentsOf(other);
  if (!std::equal(arguments.begin(), arguments.end(), others.begin(), others.end())) return false;
  return one.What != Operation::kWrite || SameBytes(one, other);
}

void LeaveOutHands(TraceLine& line) {
  auto command = CommandIn(line);
  if (!command) return;
  wire::LeaveOutHandsOfCommand(*command);
  const auto image = std::span(*command).first(line.Bytes.size());
  wire::Scramble(image, wire::kStepToMachine);
  line.Bytes.assign(image.begin(), image.end());
}

std::string QuestionName(const TraceLine& line) {
  const auto command = CommandIn(line);
  return command ? wire::CommandText(*command) : std::string(NameOf(line.What));
}

std::string QuestionText(const TraceLine& line) {
  if (line.What == Operation::kWrite) return SentText(line);
  std::string text(NameOf(line.What));
  for (const std::uint32_t number : ArgumentsOf(line)) text += " " + std::to_string(number);
  return text;
}

std::string DifferenceText(const TraceLine& traced, const TraceLine& asked) {
  return "The trace: " + QuestionText(traced) + "\nThe program: " + QuestionText(asked) +
         PlaceOfDifference(traced, asked);
}

}  // namespace morvane::bridges
