#pragma once

#include <optional>
#include <vector>

#include "bridges/trace/trace_line.h"
#include "wire/frame.h"

namespace morvane::bridges {

/// A command of a trace with what was read behind it.
class TracedExchange {
 public:
  enum class Reply : std::uint8_t { kNone, kBegun, kGood, kBad };

  /// Begins anew with the command that `write` sends.
  void Begin(const TraceLine& write);
  /// Nothing is read behind what comes now.
  void End() { *this = {}; }
  /// A command has gone out, whose answer is read.
  [[nodiscard]] bool Running() const { return !lines_.empty(); }
  /// How far the reply has come with `read`. One behind a whole one is another.
  Reply Take(const TraceLine& read);

  /// Nothing where the bytes were no frame.
  [[nodiscard]] const std::optional<wire::Frame>& Command() const { return command_; }
  /// Plain, where it is good.
  [[nodiscard]] const wire::Frame& ReplyFrame() const { return reply_; }
  [[nodiscard]] const std::vector<TraceLine>& Lines() const { return lines_; }
  /// Or were there more of them than are kept.
  [[nodiscard]] bool IsWhole() const { return whole_; }

 private:
  [[nodiscard]] Reply Judge();

  std::optional<wire::Frame> command_;
  wire::Frame reply_{};
  std::size_t received_ = 0;  ///< of the reply
  std::vector<TraceLine> lines_;
  bool whole_ = true;
};

}  // namespace morvane::bridges
