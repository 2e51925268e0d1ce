#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "bridges/trace/trace_part.h"

namespace morvane::bridges {

/// A trace with all its parts, oldest first. It is read as it is played; one line of it is held.
class TraceReader {
 public:
  /// Looks through the whole trace whose last part is `path`. Older parts stand beside it, as far
  /// as they are there: `path`.1 is the one before, and that of `path`.1 `path`.2. Where a program
  /// was killed while it moved them on, `path` itself is missing, or one number. What is wrong,
  /// with the file and the line, for who named it.
  ///
  /// Where the oldest parts are gone, what is played begins with the first opening of the link in
  /// what is left.
  [[nodiscard]] std::optional<std::string> Open(const std::string& path);

  /// Of the last part.
  [[nodiscard]] const TraceHead& Head() const { return head_; }
  [[nodiscard]] const std::string& Path() const { return path_; }
  /// What there is to play, in operations, and how many of them lie behind.
  [[nodiscard]] std::uint64_t Lines() const { return last_ - first_; }
  [[nodiscard]] std::uint64_t Played() const { return taken_ - first_; }
  /// So many of them make the run. What stands behind asks how things are, or leaves the link.
  [[nodiscard]] std::uint64_t Needed() const { return needed_ > first_ ? needed_ - first_ : 0; }

  /// The operation that is played next; null behind the last one.
  [[nodiscard]] const TraceLine* Next() const { return next_ ? &*next_ : nullptr; }
  void Advance();
  /// Shows `look` what stands behind the next one, until it has seen enough (false) and to the end
  /// of the part.
  void LookAhead(const std::function<bool(const TraceLine&)>& look);
  /// "run.trace, line 57": where the next one stands; behind the last one, where that stands.
  [[nodiscard]] std::string Place() const { return part_->Place(); }
  /// Not ended by whoever wrote it, who was killed or had no room.
  [[nodiscard]] bool CutOff() const { return !ended_; }
  /// Not empty: the file has changed since it was looked through, and ends here. What has been
  /// written behind its end meanwhile is not played.
  [[nodiscard]] const std::string& Fault() const { return fault_; }

 private:
  struct Part {
    std::string Path;
    TraceHead Head;
  };

  [[nodiscard]] std::optional<std::string> FindParts(const std::string& path);
  void FindOlderParts(const std::string& newest, int number);
  [[nodiscard]] std::optional<std::string> LookThrough();
  [[nodiscard]] std::optional<std::string> LookThrough(TracePart& part, std::uint64_t number);
  void LookAt(const TraceLine& line, std::uint64_t number);
  [[nodiscard]] std::optional<std::string> FindBeginning();
  void Rewind();
  [[nodiscard]] bool OpenPart(std::size_t at);
  void ReadNext();

  std::string path_;
  std::vector<Part> parts_;  ///< oldest first
  TraceHead head_;
  bool whole_ = true;  ///< no part is gone
  bool ended_ = false;
  std::optional<std::uint64_t> opening_;  ///< the first
  bool ofAProgram_ = false;               ///< it has what no machine is told of
  bool polls_ = false;                    ///< of the write that was looked at last
  std::chrono::microseconds at_{0};       ///< the last operation that was looked at was over

  // Counted from the first operation of the oldest part.
  std::uint64_t first_ = 0;
  std::uint64_t last_ = 0;
  std::uint64_t needed_ = 0;
  std::uint64_t taken_ = 0;

  std::unique_ptr<TracePart> part_;
  std::size_t partAt_ = 0;
  std::optional<TraceLine> next_;
  std::string fault_;
};

}  // namespace morvane::bridges
