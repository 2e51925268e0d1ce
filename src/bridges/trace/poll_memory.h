#pragma once

#include <vector>

#include "bridges/trace/traced_exchange.h"

namespace morvane::bridges {

/// Whether it only asks how things are, and does so again and again: how often hangs on when a
/// person did something. A poll that breaks a run or feeds a card does something itself.
[[nodiscard]] bool IsPoll(const wire::Frame& command);

/// One of what the sensors see.
[[nodiscard]] bool IsServicePoll(const wire::Frame& command);

/// The same poll of the machine's state, whatever presses and boards it acknowledges.
[[nodiscard]] bool SamePoll(const wire::Frame& one, const wire::Frame& other);

/// The last answer to each poll of a trace. Before its first one the machine is idle.
class PollMemory {
 public:
  PollMemory();

  struct Entry {
    wire::Frame Command{};
    wire::Frame Reply{};
    std::vector<TraceLine> Lines;  ///< the write, and the reads behind it
  };

  /// Keeps a poll that has been answered, in the place of the same one. One that tells of a press
  /// or of a board is told once.
  void Keep(const TracedExchange& exchange);
  /// `command`, which is no poll, has gone out: what the machine was at before tells nothing more.
  /// It is idle behind all that does not move a run.
  void Forget(const wire::Frame& command);
  /// The answer to `command`: to the same poll, or to one that acknowledges other events. Null
  /// where there is none yet, and to what is no poll.
  [[nodiscard]] const Entry* AnswerTo(const wire::Frame& command) const;

 private:
  std::vector<Entry> entries_;  ///< the oldest first
};

}  // namespace morvane::bridges
