#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "bridges/trace/trace_line.h"
#include "bridges/trace/trace_parts.h"
#include "platform/clock.h"
#include "platform/file_beside.h"
#include "platform/file_lock.h"

namespace morvane::bridges {

/// What a trace is asked to be.
struct TraceOrder {
  /// A part grows no further, but for "# end".
  static constexpr std::uint64_t kLargestPart = std::uint64_t{64} << 20U;

  std::string Path;
  std::string Machine;  ///< the text of `--machine`; of a trace without hands its kind is kept
  bool HandsLeftOut = false;
  std::uint64_t LargestPart = kLargestPart;
};

/// The files of a trace that is written (`TraceParts`), its user's alone. A line is in the system's
/// hands, in one piece, when `Write` returns.
class TraceFile {
 public:
  /// Its time begins; its files do with the first line, so that who asks nothing of a machine moves
  /// nothing on, and keeps nobody away. What can be seen before is in `Trouble`.
  TraceFile(const TraceOrder& order, const Clock& clock);
  ~TraceFile() { End(); }
  TraceFile(const TraceFile&) = delete;
  TraceFile& operator=(const TraceFile&) = delete;

  /// Since it was made.
  [[nodiscard]] std::chrono::microseconds Time() const { return clock_.Elapsed() - made_; }
  [[nodiscard]] bool HandsLeftOut() const { return head_.HandsLeftOut; }

  void Write(const TraceLine& line, std::string_view said);
  /// Says in the file that it ends here. Nothing is written behind it.
  void End();

  /// Why nothing is written, or nothing any more, in a line; empty while all goes well. What was
  /// written before ends with a whole line.
  [[nodiscard]] const std::string& Trouble() const { return trouble_; }

 private:
  void Begin();
  bool TakeLock();
  bool StartPart();
  bool Put(std::string_view text);
  void Stop(const std::string& why);
  void LetGo();

  const Clock& clock_;
  std::chrono::microseconds made_;
  TraceParts parts_;
  std::uint64_t largest_;
  TraceHead head_;
  std::optional<FileLock> lock_;
  bool begun_ = false;
  OpenedFile file_;         ///< none: it has not begun, or has stopped
  std::uint64_t size_ = 0;  ///< of this part
  bool hasLines_ = false;   ///< this part has
  std::string trouble_;
};

}  // namespace morvane::bridges
