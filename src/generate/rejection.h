#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "history/history_ring.h"
#include "model/board_set.h"
#include "model/similarity.h"

namespace morvane::generate {

/// Which of the tests are on.
struct RejectionSwitches {
  bool Shape = false;
  bool Inner = false;
  bool History = false;
};

/// From how many cards in common on a candidate is too much like another deal.
struct RejectionLimits {
  std::int16_t InnerLimit = 13;
  std::int16_t HistoryLimit = 13;
};

/// The most alike pair of a run: a board of the set, and another board of the set or of history.
struct BestPair : AlikePair {
  std::string File;  ///< of a historic board
};

/// The tests that a candidate must pass before it becomes a board of the set, with what they have
/// counted and seen during one run.
class RejectionTests {
 public:
  /// `set` and `history` are read at each test and outlive the run, which starts at board `first`.
  RejectionTests(const BoardSet& set, const history::HistoryRing& history, int first,
                 RejectionSwitches switches, RejectionLimits limits)
      : set_(set), history_(history), first_(first), switches_(switches), limits_(limits) {}

  /// Whether `candidate`, with its cards complete, may not become board `k`.
  [[nodiscard]] bool Rejects(const Board& candidate, int k);

  int ShapeRejects = 0;
  int InnerRejects = 0;
  int HistoryRejects = 0;
  BestPair BestInner;
  BestPair BestHistory;

 private:
  [[nodiscard]] bool HasOddShape(const Board& candidate, int k) const;
  [[nodiscard]] bool ResemblesSet(const Board& candidate, int k);
  [[nodiscard]] bool ResemblesHistory(const Board& candidate, int k);
  [[nodiscard]] bool IsOddShape(int shape, int k) const;

  const BoardSet& set_;
  const history::HistoryRing& history_;
  int first_;
  RejectionSwitches switches_;
  RejectionLimits limits_;
  std::vector<HandMasks> setHands_;  ///< of the set's boards from `first_` on, as far as known
};

/// How often a shape may stand in the set before board `k`: twice its expected count, rounded. No
/// shape's product lies halfway between two numbers.
[[nodiscard]] int ShapeLimit(int shape, int k);

}  // namespace morvane::generate
