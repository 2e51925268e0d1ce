#pragma once

#include <cstddef>
#include <deque>
#include <optional>
#include <string>
#include <vector>

#include "machine/board_walk.h"

namespace morvane::machine {

/// What a run has done so far, board by board, and how long another one takes.
class RunHistory {
 public:
  struct Entry {
    std::string What;     ///< "Board 7", "Board 7, copy 2", "Pack 1"
    double Seconds = 0;   ///< that the machine took; told of a good one only
    std::string Outcome;  ///< "dealt", "stopped: Card Jam Error"
    bool Good = false;
  };
  static constexpr std::size_t kMost = 100;

  /// `now`: seconds on a clock that goes on between the boards.
  void Add(Entry entry, double now);
  /// The last `kMost`, the newest first.
  [[nodiscard]] const std::deque<Entry>& Entries() const { return entries_; }
  /// How many there have been.
  [[nodiscard]] std::size_t Count() const { return count_; }
  /// The last one was good, and was this.
  [[nodiscard]] bool HasJustDone(const std::string& what) const;
  /// From the end of one good board to the end of the next, with what is done by hand between them:
  /// the median, which a long break does not move. Of the first one its own time; before, nothing.
  [[nodiscard]] std::optional<double> SecondsEach() const;

 private:
  std::deque<Entry> entries_;
  std::size_t count_ = 0;
  std::optional<double> lastGood_;  ///< when it ended
  double firstSeconds_ = 0;
  std::vector<double> intervals_;
};

/// "Board 7   14.2 s   dealt"; what did not end well has no time.
[[nodiscard]] std::string HistoryLine(const RunHistory::Entry& entry);

/// How many boards and copies come behind this copy of this board.
[[nodiscard]] int LeftBehind(const RunMemory& range, int board, int copy);

/// "about 7 minutes", rounded up.
[[nodiscard]] std::string About(double seconds);
/// "25 boards left, about 7 minutes"; no time where `secondsEach` is not known.
[[nodiscard]] std::string LeftLine(int left, std::optional<double> secondsEach);

}  // namespace morvane::machine
