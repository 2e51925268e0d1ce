#include "edit/hand_swaps.h"

#include <array>
#include <utility>

namespace morvane::edit {
namespace {

constexpr std::array<std::pair<int, int>, 6> kPairs{{{kNorth, kWest},
                                                     {kNorth, kEast},
                                                     {kSouth, kEast},
                                                     {kSouth, kWest},
                                                     {kNorth, kSouth},
                                                     {kEast, kWest}}};

}  // namespace

void SwapHands(Board& board, int a, int b) {
  for (std::uint8_t& holder : board.Cards) {
    if (holder == a) {
      holder = static_cast<std::uint8_t>(b);
    } else if (holder == b) {
      holder = static_cast<std::uint8_t>(a);
    }
  }
}

void RotateHands(Board& board, int k) {
  for (std::uint8_t& holder : board.Cards) {
    if (holder == 0) continue;
    const int hand = holder + k;
    holder = static_cast<std::uint8_t>(hand > kHands ? hand - kHands : hand);
  }
}

void Swap(Board& board, int index) {
  const auto place = static_cast<std::size_t>(index);
  if (place < kPairs.size()) {
    SwapHands(board, kPairs[place].first, kPairs[place].second);
  } else {
    // "CCW" hands North's cards to East, "CW" hands them to West: required.
    RotateHands(board, place == kPairs.size() ? 1 : 3);
  }
}

}  // namespace morvane::edit
