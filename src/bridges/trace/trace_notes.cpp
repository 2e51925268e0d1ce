#include "bridges/trace/trace_notes.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include "text/text.h"
#include "text/text_encoding.h"
#include "wire/frame_text.h"

namespace morvane::bridges {
namespace {

using Bytes = std::span<std::uint8_t>;

constexpr std::size_t kBody = wire::kLongFrame - wire::kShortFrame;
constexpr std::uint8_t kEndOfShortBlank = 0x80;
constexpr std::string_view kHeadRemark = "head of a long frame";

/// Whether so many bytes were asked for, and came.
bool HasRead(const TraceLine& line, std::size_t count) {
  return line.Numbers[1] == count && line.Bytes.size() == count;
}

bool IsWhole(std::span<const std::uint8_t> bytes) {
  return bytes.size() >= wire::kShortFrame && bytes.size() == wire::SizeOnTheWire(bytes);
}

void Blank(Bytes bytes) { std::ranges::fill(bytes, std::uint8_t{0}); }

/// The plain frame of a wire image; whether its check holds.
bool Unscrambled(std::span<const std::uint8_t> image, std::uint8_t step, wire::Frame& frame) {
  std::ranges::copy(image, frame.begin());
  return wire::Unscramble(std::span(frame).first(image.size()), step);
}

void Scrambled(const wire::Frame& frame, std::uint8_t step, Bytes image) {
  std::copy_n(frame.begin(), image.size(), image.begin());
  wire::Scramble(image, step);
}

/// The text that these bytes are, in one line.
std::string Words(const std::vector<std::uint8_t>& bytes) {
  return WithoutControls(DecodeText({bytes.begin(), bytes.end()}));
}

}  // namespace

void TraceNotes::Note(TraceLine& line) {
  if (line.What == Operation::kRead) return NoteRead(line);
  LetGoOfHead();
  // Words may name frames, and files.
  if (file_.HandsLeftOut() && line.What == Operation::kAdvice) return;
  if (line.What != Operation::kWrite) return file_.Write(line, Words(line.Bytes));
  if (!IsWhole(line.Bytes)) return NoteHalf(line);
  const std::string said = TakeCommand(line.Bytes);
  file_.Write(line, said);
}

void TraceNotes::End() {
  LetGoOfHead();
  file_.End();
}

void TraceNotes::NoteRead(TraceLine& line) {
  if (awaitsBody_ && HasRead(line, kBody)) return NoteBody(line);
  LetGoOfHead();
  if (!HasRead(line, wire::kShortFrame)) return NoteHalf(line);
  if (!IsWhole(line.Bytes)) return NoteHead(line);
  const std::string said = TakeReply(line.Bytes);
  file_.Write(line, said);
}

void TraceNotes::NoteHead(const TraceLine& line) {
  awaitsBody_ = true;
  head_ = line;
  if (!file_.HandsLeftOut()) file_.Write(line, kHeadRemark);
}

void TraceNotes::NoteBody(TraceLine& line) {
  awaitsBody_ = false;
  wire::Frame image{};
  const Bytes head = std::span(image).first(wire::kShortFrame);
  const Bytes body = wire::Payload(image);
  std::ranges::copy(head_.Bytes, head.begin());
  std::ranges::copy(line.Bytes, body.begin());
  const std::string said = TakeReply(image);
  std::ranges::copy(head, head_.Bytes.begin());
  std::ranges::copy(body, line.Bytes.begin());
  if (file_.HandsLeftOut()) file_.Write(head_, kHeadRemark);
  file_.Write(line, said);
}

void TraceNotes::NoteHalf(TraceLine& line) {
  if (file_.HandsLeftOut()) Blank(line.Bytes);
  file_.Write(line, line.Bytes.empty() ? "nothing" : "half a frame");
}

/// Its body has not come.
void TraceNotes::LetGoOfHead() {
  if (awaitsBody_ && file_.HandsLeftOut()) {
    Blank(head_.Bytes);
    file_.Write(head_, kHeadRemark);
  }
  awaitsBody_ = false;
}

// What a wire image says. In a trace without hands it becomes one that may be handed on.

std::string TraceNotes::TakeCommand(Bytes image) {
  wire::Frame frame{};
  if (!Unscrambled(image, wire::kStepToMachine, frame)) return TakeBad(image);
  if (file_.HandsLeftOut()) random_.LeaveOut(frame);
  std::string said = wire::CommandText(frame);  // which names no card
  if (file_.HandsLeftOut()) {
    wire::LeaveOutHandsOfCommand(frame);
    Scrambled(frame, wire::kStepToMachine, image);
  }
  return said;
}

std::string TraceNotes::TakeReply(Bytes image) {
  wire::Frame frame{};
  if (!Unscrambled(image, wire::kStepFromMachine, frame)) return TakeBad(image);
  if (file_.HandsLeftOut()) {
    wire::LeaveOutHandsOfReply(frame);
    Scrambled(frame, wire::kStepFromMachine, image);
  }
  return wire::ReplyText(frame);
}

std::string TraceNotes::TakeBad(Bytes image) {
  if (file_.HandsLeftOut()) {
    Blank(image);
    if (image.size() == wire::kShortFrame) image.back() = kEndOfShortBlank;
  }
  return "bad check";
}

}  // namespace morvane::bridges
