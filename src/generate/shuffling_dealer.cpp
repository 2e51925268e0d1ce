#include "generate/shuffling_dealer.h"

#include <numeric>

namespace morvane::generate {
namespace {

constexpr int kRiffles = 50;
constexpr int kStepsPerPacket = 3;
constexpr std::array<std::uint32_t, 4> kStuck{0xFFFFFFFF, 0xFFFFFFFF, 0xFFFFFFFF, 0xFFFFFFFF};

std::uint32_t Feedback(const std::array<std::uint32_t, 4>& state) {
  if (state == kStuck) return 0;  // the one state that the inverted feedback would never leave
  const std::uint32_t top = state[0];
  return ~(top >> 27U ^ top >> 25U ^ top >> 4U ^ top >> 2U) & 1U;
}

}  // namespace

void ShufflingDealer::LfsrStep() {
  const std::uint32_t feedback = Feedback(LfsrState);
  for (std::size_t i = 0; i < 3; ++i) LfsrState[i] = LfsrState[i] << 1U | LfsrState[i + 1] >> 31U;
  LfsrState[3] = LfsrState[3] << 1U | feedback;
  ShuffleStep = (LfsrState[3] & 7U) + 1;
}

void ShufflingDealer::NextShuffledDeal(Board& board) {
  for (int i = 0; i < kRiffles; ++i) {
    Riffle(Deck, [this](std::size_t from) { return NextPacket(from); });
  }
  board = Board{};
  int hand = kNorth;
  for (std::size_t k = 1; k <= kCards; ++k, hand = NextHand(hand)) {
    board.Cards[static_cast<std::uint8_t>(Deck[k])] = static_cast<std::uint8_t>(hand);
  }
}

void ShufflingDealer::NewDeck() { std::iota(Deck.begin(), Deck.end(), std::int8_t{0}); }

std::uint32_t ShufflingDealer::NextPacket(std::size_t from) {
  for (int i = 0; i < kStepsPerPacket; ++i) LfsrStep();
  ShuffleStep = LimitedPacket(ShuffleStep, from);
  return ShuffleStep;
}

}  // namespace morvane::generate
