#pragma once

#include <array>
#include <chrono>
#include <cstdint>
#include <fstream>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "bridges/trace/trace_line.h"

namespace morvane::bridges {

/// One file of a trace, read from its start to its end. One line of it is held.
class TracePart {
 public:
  explicit TracePart(std::string path) : path_(std::move(path)) {}
  TracePart(const TracePart&) = delete;
  TracePart& operator=(const TracePart&) = delete;

  /// Takes the head of the file. What is wrong, in words for who named it.
  [[nodiscard]] std::optional<std::string> Open();
  [[nodiscard]] const TraceHead& Head() const { return head_; }

  enum class Got : std::uint8_t { kLine, kEnd, kFault };
  /// The next operation. `kFault`: `Fault` says what is wrong with its line, or with the file.
  [[nodiscard]] Got Next(TraceLine& line);
  [[nodiscard]] const std::string& Fault() const { return fault_; }
  /// Whoever wrote it has ended it; known behind the last operation.
  [[nodiscard]] bool Ended() const { return ended_; }
  /// Reads on from the same place, behind an operation, and leaves this one where it is. Null
  /// when another trace has its name by now.
  [[nodiscard]] std::unique_ptr<TracePart> Fork();
  /// When the last operation was over.
  [[nodiscard]] std::chrono::microseconds At() const { return at_; }
  /// "run.trace, line 57", of the operation that came last.
  [[nodiscard]] std::string Place() const;

 private:
  Got NextText();
  Got Wrong(const std::string& what);
  Got TakeHead();
  Got Parse(TraceLine& line);

  std::string path_;
  std::ifstream file_;
  TraceHead head_;
  std::array<char, kLongestTraceLine> buffer_{};
  std::string_view text_;  ///< of the line, in the buffer
  std::uint64_t number_ = 0;
  bool held_ = false;  ///< the line has been read and is no more of the head
  bool ended_ = false;
  std::chrono::microseconds at_{0};  ///< the operation before was over
  std::string fault_;
};

}  // namespace morvane::bridges
