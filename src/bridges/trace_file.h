#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "bridges/trace_line.h"
#include "platform/clock.h"
#include "platform/file_beside.h"
#include "platform/file_lock.h"

namespace morvane::bridges {

/// What a trace is asked to be.
struct TraceOrder {
  /// A part grows no further, but for "# end".
  static constexpr std::uint64_t kLargestPart = std::uint64_t{64} << 20U;

  std::string Path;
  std::string Machine;  ///< the text of `--machine`
  bool HandsLeftOut = false;
  std::uint64_t LargestPart = kLargestPart;
};

/// The files of a trace that is written, its user's alone. The newest part is FILE, the ones before
/// it, and the traces before this one, are FILE.1 (the newest) to FILE.4; older ones go. FILE.lock
/// keeps other programs away. A line is in the system's hands, in one piece, when `Write` returns.
class TraceFile {
 public:
  static constexpr int kOldParts = 4;

  /// Begins it now. What stands under one of its names and is no trace is left alone, and so is a
  /// link: `Trouble` says so then.
  TraceFile(const TraceOrder& order, const Clock& clock);
  /// Ends it.
  ~TraceFile();
  TraceFile(const TraceFile&) = delete;
  TraceFile& operator=(const TraceFile&) = delete;

  /// Since it began.
  [[nodiscard]] std::chrono::microseconds Time() const { return clock_.Elapsed() - began_; }
  [[nodiscard]] bool HandsLeftOut() const { return head_.HandsLeftOut; }

  void Write(const TraceLine& line, std::string_view said);

  /// Why nothing is written, or nothing any more, in a line; empty while all goes well. What was
  /// written before ends with a whole line.
  [[nodiscard]] const std::string& Trouble() const { return trouble_; }

 private:
  [[nodiscard]] std::string Part(int number) const;
  [[nodiscard]] std::string ForeignPart() const;
  bool TakeLock();
  bool MakeRoom();
  bool StartPart();
  bool Put(std::string_view text);
  void Stop(const std::string& why);

  const Clock& clock_;
  std::chrono::microseconds began_;
  std::string path_;
  std::uint64_t largest_;
  TraceHead head_;
  std::optional<FileLock> lock_;
  OpenedFile file_;         ///< none: it has stopped
  std::uint64_t size_ = 0;  ///< of this part
  bool hasLines_ = false;   ///< this part has
  std::string trouble_;
};

}  // namespace morvane::bridges
