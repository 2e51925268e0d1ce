#include "edit/edit_shuffle.h"

namespace morvane::edit {
namespace {

constexpr int kRiffles = 10;
constexpr std::uint32_t kFactor = 3533;
constexpr std::uint32_t kLow = 0xFFFF;
constexpr int kMostSteps = 10;

/// 1..10.
int DrawSteps(Entropy& random) { return static_cast<int>(random.Random() * kMostSteps + 1); }

std::uint32_t NextPacket(EditChance& chance, std::size_t from) {
  std::uint32_t size = 0;
  for (int steps = DrawSteps(chance.Random); steps > 0; --steps) size = SmallRandomStep(chance);
  return LimitedPacket(size, from);
}

}  // namespace

// The states are 16 bits wide, so no product needs more than 32; what a first one of more bits, a
// negative one too, loses above them is masked off anyway.
std::uint32_t SmallRandomStep(EditChance& chance) {
  const std::uint32_t x = chance.StartParamMouse;
  const std::uint32_t product = x * kFactor;
  const std::uint32_t t = static_cast<std::uint32_t>(chance.StartParamDays) * kFactor;
  const std::uint32_t y = (t + (product >> 16U) + x) & kLow;
  chance.StartParamMouse = product & kLow;
  chance.StartParamDays = static_cast<std::int32_t>(y);
  return (y >> 13U) + 1;
}

void ShuffleForEdit(EditChance& chance) {
  DrawSteps(chance.Random);  // not used, but drawn: required
  for (int i = 0; i < kRiffles; ++i) {
    Riffle(chance.Deck, [&chance](std::size_t from) { return NextPacket(chance, from); });
  }
}

void FillFromDeck(Board& board, const CardDeck& deck) {
  AnalyzeBoard(board);
  auto counts = board.HandCount;
  int pointer = kNorth;
  for (std::size_t place = 1; place <= kCards; ++place) {
    std::uint8_t& holder = board.Cards[static_cast<std::uint8_t>(deck[place])];
    if (holder != 0) continue;
    // A card that nobody holds leaves room in some hand, so the search ends.
    int hand = pointer;
    while (counts[static_cast<std::size_t>(hand)] >= kRanks) hand = NextHand(hand);
    holder = static_cast<std::uint8_t>(hand);
    ++counts[static_cast<std::size_t>(hand)];
    pointer = NextHand(hand);
  }
}

}  // namespace morvane::edit
