#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "bridges/trace_part.h"

namespace morvane::bridges {

/// A trace with all its parts, oldest first. It is read as it is played; one line of it is held.
class TraceReader {
 public:
  /// Looks through the whole trace whose last part is `path`. Older parts stand beside it, as far
  /// as they are there: `path`.1 is the one before. What is wrong, with the file and the line, for
  /// who named it.
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

  /// The operation that is played next; null behind the last one.
  [[nodiscard]] const TraceLine* Next() const { return next_ ? &*next_ : nullptr; }
  void Advance();
  /// "run.trace, line 57": where the next one stands; behind the last one, where that stands.
  [[nodiscard]] std::string Place() const { return part_->Place(); }
  /// Not ended by whoever wrote it, who was killed or had no room.
  [[nodiscard]] bool CutOff() const { return !ended_; }
  /// Not empty: the file has changed since it was looked through, and ends here.
  [[nodiscard]] const std::string& Fault() const { return fault_; }

 private:
  [[nodiscard]] std::optional<std::string> FindParts(const std::string& path);
  void FindOlderParts();
  [[nodiscard]] std::optional<std::string> LookThrough();
  [[nodiscard]] std::optional<std::string> LookThrough(TracePart& part, std::uint64_t number);
  void Rewind();
  [[nodiscard]] bool OpenPart(std::size_t at);
  void ReadNext();

  std::string path_;
  std::vector<std::string> paths_;  ///< of the parts, oldest first
  TraceHead head_;
  bool whole_ = true;  ///< no part is gone
  bool ended_ = false;
  std::optional<std::uint64_t> opening_;  ///< the first
  std::chrono::microseconds at_{0};       ///< of the last operation that was looked at

  // Counted from the first operation of the oldest part.
  std::uint64_t first_ = 0;
  std::uint64_t last_ = 0;
  std::uint64_t taken_ = 0;

  std::unique_ptr<TracePart> part_;
  std::size_t partAt_ = 0;
  std::optional<TraceLine> next_;
  std::string fault_;
};

}  // namespace morvane::bridges
