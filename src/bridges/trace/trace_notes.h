#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "bridges/trace/trace_file.h"
#include "wire/frame.h"
#include "wire/hands_left_out.h"

namespace morvane::bridges {

/// Puts into words what the operations of a link have moved, and leaves out the hands where the
/// trace is to be without them. What is noted then are the bytes of the frame without them. Bytes
/// that are no whole frame, or fail their check, are noted as so many zeros, of which the last of a
/// short frame is 0x80: they fail their check too, and are as long for who receives them. Advice is
/// words for the operator; such as show a frame are left out then.
class TraceNotes {
 public:
  TraceNotes(const TraceOrder& order, const Clock& clock) : file_(order, clock) {}
  ~TraceNotes() { End(); }
  TraceNotes(const TraceNotes&) = delete;
  TraceNotes& operator=(const TraceNotes&) = delete;

  [[nodiscard]] const TraceFile& File() const { return file_; }

  /// Writes the line down. A trace without hands has the first eight bytes of a long frame with the
  /// next operation: they depend on all that follow them. `line` is left with the bytes as noted.
  void Note(TraceLine& line);
  /// Writes what waits, and that the trace ends here.
  void End();

 private:
  void NoteRead(TraceLine& line);
  void NoteHead(const TraceLine& line);
  void NoteBody(TraceLine& line);
  void NoteHalf(TraceLine& line);
  void LetGoOfHead();
  std::string TakeCommand(std::span<std::uint8_t> image);
  std::string TakeReply(std::span<std::uint8_t> image);
  std::string TakeBad(std::span<std::uint8_t> image);

  TraceFile file_;
  wire::RandomLeftOut random_;
  bool awaitsBody_ = false;  ///< the last operation has read the head of a long frame
  TraceLine head_;           ///< that operation
};

}  // namespace morvane::bridges
