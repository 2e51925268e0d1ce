#pragma once

#include <array>
#include <chrono>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "bridges/trace/trace_notes.h"
#include "simulator/line/line_listener.h"

namespace morvane::bridges {

/// The trace of what passes at the machine's end of a line: commands as a program's writes, replies
/// as its reads, each with the times of its first and its last byte; where both pass at once, one
/// begins when the other is over. It is there to be read; what else the program asks of its bridge
/// does not come over the line.
class LineTrace final : public simulator::LineListener {
 public:
  LineTrace(const TraceOrder& order, const Clock& clock);
  ~LineTrace() override { End(); }
  LineTrace(const LineTrace&) = delete;
  LineTrace& operator=(const LineTrace&) = delete;

  void Heard(std::span<const std::uint8_t> bytes, Time now) override;
  void Said(std::span<const std::uint8_t> bytes, Time now) override;
  void Latched(bool on, Time now) override;
  void Closed(Time now) override;
  [[nodiscard]] const std::string& Trouble() const override { return notes_.File().Trouble(); }
  /// Notes what has passed of a frame, and ends the trace.
  void End();

 private:
  /// Bytes that have passed in one direction and are no whole frame yet.
  struct Passed {
    Operation What;
    std::vector<std::uint8_t> Bytes{};
    Time First{0};
    Time Last{0};
  };

  void Gather(Passed& passed, std::span<const std::uint8_t> bytes, Time now);
  void NoteFrames(Passed& passed);
  /// The rest is no frame: nothing more comes.
  void NoteRest(Passed& passed);
  void NoteRests();
  void Note(Passed& passed, std::size_t count);
  void NoteAt(Time now, Operation what, const std::array<std::uint32_t, 3>& numbers);
  void Note(TraceLine& line);

  TraceNotes notes_;
  Time began_;
  Time over_{0};  ///< the last line was, since it began
  Passed heard_{.What = Operation::kWrite};
  Passed said_{.What = Operation::kRead};
};

}  // namespace morvane::bridges
