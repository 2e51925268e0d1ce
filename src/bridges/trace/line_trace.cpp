#include "bridges/trace/line_trace.h"

#include <algorithm>
#include <array>

#include "simulator/wired_machine.h"
#include "wire/frame.h"

namespace morvane::bridges {
namespace {

/// A line has one user.
constexpr std::uint32_t kHandle = 1;
constexpr std::uint32_t kLatchLine = 1;

}  // namespace

LineTrace::LineTrace(const TraceOrder& order, const Clock& clock)
    : notes_(order, clock), began_(clock.Elapsed() - notes_.File().Time()) {}

void LineTrace::End() {
  NoteRests();
  notes_.End();
}

void LineTrace::Heard(std::span<const std::uint8_t> bytes, Time now) {
  NoteRest(said_);
  // The machine takes what comes behind a silence for a new command.
  if (now - heard_.Last >= simulator::WiredMachine::kSilence) NoteRest(heard_);
  Gather(heard_, bytes, now);
}

void LineTrace::Said(std::span<const std::uint8_t> bytes, Time now) { Gather(said_, bytes, now); }

void LineTrace::Latched(bool on, Time now) {
  NoteRests();
  NoteAt(now, Operation::kWriteLatch, {kHandle, kLatchLine, on ? kLatchLine : 0});
}

void LineTrace::Closed(Time now) {
  NoteRests();
  NoteAt(now, Operation::kClose, {kHandle});
}

void LineTrace::Gather(Passed& passed, std::span<const std::uint8_t> bytes, Time now) {
  if (passed.Bytes.empty()) passed.First = now;
  passed.Last = now;
  passed.Bytes.insert(passed.Bytes.end(), bytes.begin(), bytes.end());
  NoteFrames(passed);
}

void LineTrace::NoteFrames(Passed& passed) {
  while (passed.Bytes.size() >= wire::kShortFrame) {
    const std::size_t size = wire::SizeOnTheWire(std::span(passed.Bytes).first(wire::kShortFrame));
    if (passed.Bytes.size() < size) return;
    // A program reads the head of a long reply first.
    if (passed.What == Operation::kRead && size > wire::kShortFrame) {
      Note(passed, wire::kShortFrame);
      Note(passed, size - wire::kShortFrame);
    } else {
      Note(passed, size);
    }
    passed.First = passed.Last;
  }
}

void LineTrace::NoteRest(Passed& passed) {
  if (!passed.Bytes.empty()) Note(passed, passed.Bytes.size());
}

void LineTrace::NoteRests() {
  NoteRest(heard_);
  NoteRest(said_);
}

void LineTrace::Note(Passed& passed, std::size_t count) {
  const auto end = passed.Bytes.begin() + static_cast<std::ptrdiff_t>(count);
  TraceLine line;
  line.At = passed.First - began_;
  line.Took = passed.Last - passed.First;
  line.What = passed.What;
  line.Numbers = {kHandle, static_cast<std::uint32_t>(count)};
  line.Bytes.assign(passed.Bytes.begin(), end);
  passed.Bytes.erase(passed.Bytes.begin(), end);
  Note(line);
}

void LineTrace::NoteAt(Time now, Operation what, const std::array<std::uint32_t, 3>& numbers) {
  TraceLine line;
  line.At = now - began_;
  line.What = what;
  line.Numbers = numbers;
  Note(line);
}

/// Times in a trace never go back.
void LineTrace::Note(TraceLine& line) {
  const Time end = std::max(line.At + line.Took, over_);
  line.At = std::max(line.At, over_);
  line.Took = end - line.At;
  over_ = end;
  notes_.Note(line);
}

}  // namespace morvane::bridges
