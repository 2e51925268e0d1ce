#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "bridges/trace/poll_memory.h"
#include "bridges/trace/trace_reader.h"
#include "bridges/trace/traced_exchange.h"
#include "simulator/frame_log.h"

namespace morvane::bridges {

/// Holds what a program asks of the bridge against a trace, operation by operation.
///
/// What hangs on a person is no difference. A poll in the place of something else is answered as it
/// was the last time, without moving on; where the trace has polls and the program asks for what
/// stands behind them, they are passed over; which presses and boards a poll acknowledges does not
/// count. Where a technician has switched other outputs, or a run asks for the label of its board,
/// the trace is passed over to where that was so, as far as there are but polls. A flush tells the
/// machine nothing: one that the trace lacks succeeds, one that the program leaves out is passed
/// over. All else has to be the same, in the same order; an opening that fails is tried again as
/// often as the trace has it.
class Playback {
 public:
  explicit Playback(TraceReader trace) : trace_(std::move(trace)) { TakeAdvice(); }

  /// What came of `asked` (`TraceLine::Took` of it is to be spent). Nothing from the first
  /// difference on, and behind the end: `Trouble` says where and what.
  [[nodiscard]] std::optional<TraceLine> Answer(TraceLine asked);

  /// Whole sentences, the lines ending with LF but for the last; empty while it plays.
  [[nodiscard]] const std::string& Trouble() const { return trouble_; }
  /// What the bridge of the trace had to say; once there is trouble, where it is and of what kind.
  /// The frames are left out: in a trace of this run, that leaves out hands, they have no place.
  [[nodiscard]] const std::string& Advice() const { return advice_; }
  /// "The trace waits for CmdDeal begin.": the program has only polled for a while, and the trace
  /// has something else; empty otherwise.
  [[nodiscard]] std::string Waiting() const;
  /// "300 of 800 operations were played."; empty when all of the run has been, though the program
  /// may have polled less at its end.
  [[nodiscard]] std::string LeftOver() const;
  [[nodiscard]] const TraceReader& Trace() const { return trace_; }
  [[nodiscard]] const simulator::FrameLog& Frames() const { return frames_; }

 private:
  [[nodiscard]] bool IsNext(const TraceLine& asked) const;
  [[nodiscard]] bool IsNextPoll(const TraceLine& asked) const;
  TraceLine Take();
  void TakeAdvice();
  void Follow(const TraceLine& line);
  void NoteReply(TracedExchange::Reply reply);
  [[nodiscard]] bool ComesAmongPolls(const TraceLine& asked);
  [[nodiscard]] bool LooksAheadFor(const TraceLine& asked, bool pastServicePolls);
  [[nodiscard]] std::optional<TraceLine> AnswerAgain(const TraceLine& asked);
  [[nodiscard]] TraceLine ReadAgain(const TraceLine& asked);
  void PassFlushes();
  void PassPolls(const TraceLine& asked);
  [[nodiscard]] bool PollIsNext() const;
  void Stop(const TraceLine& asked);

  TraceReader trace_;
  std::string trouble_;
  std::string advice_;
  TracedExchange exchange_;
  PollMemory polls_;
  simulator::FrameLog frames_;

  std::vector<TraceLine> notAhead_;  ///< polls that have been looked for from here on

  // A poll that is answered as the last time.
  bool again_ = false;
  std::vector<TraceLine> rest_;  ///< of its lines, the next one at the end
  int againPolls_ = 0;           ///< answered so, one after the other
  int busyPolls_ = 0;            ///< those of them by a machine that is busy
};

}  // namespace morvane::bridges
