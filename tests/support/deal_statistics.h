#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "model/board.h"
#include "support/chi_square.h"

namespace morvane::test {

/// A hand's four suit lengths in descending order, and how many of the C(52, 13) hands have them.
struct ExactShape {
  std::array<int, 4> Lengths{};
  std::uint64_t Hands = 0;
};

/// All 39, the most frequent first, counted out by binomials.
[[nodiscard]] const std::vector<ExactShape>& ExactShapes();

/// C(52, 13).
inline constexpr std::uint64_t kAllHands = 635'013'559'600;

/// What complete deals should look like when each of all deals is equally likely.
class DealStatistics {
 public:
  DealStatistics();

  /// `board` must be complete. Only its cards count.
  void Add(const Board& board);
  [[nodiscard]] int Deals() const { return deals_; }

  /// How often each of the 52 cards came to each of the four hands: 153 degrees of freedom.
  [[nodiscard]] ChiSquare CardsToHands() const;
  /// The shapes of `hand` against their exact probabilities. The rarest shapes count as one, so
  /// many of them that 5 are to be expected.
  [[nodiscard]] ChiSquare ShapesOf(int hand) const;

 private:
  int deals_ = 0;
  std::array<std::array<std::int64_t, 5>, 53> cards_{};  ///< [card][hand]
  std::array<std::vector<std::int64_t>, 5> shapes_;      ///< [hand][place in `ExactShapes`]
};

}  // namespace morvane::test
