#pragma once

#include <cstddef>
#include <deque>
#include <optional>
#include <span>
#include <vector>

#include "audit/logged_set.h"
#include "generate/number_dealer.h"

namespace morvane::audit {

/// Seeds, and a number generator that has them.
struct SeededDealer {
  LoggedSeeds Seeds;
  generate::NumberDealer Dealer;
};

/// Seeds that wait for their set. Several processes may share a log, so that the set behind seeds
/// need not be theirs; it is told by the numbers of its deals. Seeds make one set only.
class SeedBook {
 public:
  void AddNumberSeeds(LoggedSeeds seeds);
  void AddShufflingSeed();

  /// Strikes out and answers the seeds under which most of the records have their deal numbers, of
  /// equally good ones the latest. Nothing when none has.
  [[nodiscard]] std::optional<SeededDealer> TakeFitting(std::span<const LoggedRecord> records);
  /// The latest seeds that no set has taken.
  [[nodiscard]] std::optional<SeededDealer> LatestNumberSeeds() const;

  /// Strikes out a seed of the shuffling generator; false without any.
  bool TakeShufflingSeed();
  [[nodiscard]] bool LatestIsShuffling() const { return latestIsShuffling_; }

  /// Lines of the number generator's seeds that no set has taken.
  [[nodiscard]] std::vector<std::size_t> Unused() const;

 private:
  std::deque<SeededDealer> waiting_;  ///< the latest last, and not many
  std::vector<std::size_t> givenUp_;  ///< lines of seeds that have waited too long
  int shufflingSeeds_ = 0;
  bool latestIsShuffling_ = false;
};

}  // namespace morvane::audit
