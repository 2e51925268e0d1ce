#include "simulator/deck.h"

#include <algorithm>

namespace morvane::simulator {

bool IsWhole(Pack pack) {
  std::sort(pack.begin(), pack.end());
  for (std::size_t i = 0; i < pack.size(); ++i) {
    if (pack[i] != i + 1) return false;
  }
  return true;
}

void Pile::AddAll(const Pile& pile) {
  for (std::size_t at = 0; at < pile.Count(); ++at) Add(pile[at]);
}

void Pile::RemoveAt(std::size_t at) {
  std::copy(cards_.begin() + at + 1, cards_.begin() + count_, cards_.begin() + at);
  --count_;
}

void Pile::Remove(int card) {
  for (std::size_t at = 0; at < count_; ++at) {
    if (cards_[at] == card) return RemoveAt(at);
  }
}

void Pile::TurnOver() { std::reverse(cards_.begin(), cards_.begin() + count_); }

void Feeder::LoadPack() {
  Empty();
  const auto prepared = std::exchange(prepared_, std::nullopt);
  if (const auto& pack = prepared ? prepared : always_) {
    for (const int card : *pack) cards_.Add(card);
    return;
  }
  for (int card = 1; card <= kCards; ++card) cards_.Add(card);
  Shuffle();
}

void Feeder::LoadPacks(int packs) {
  Empty();
  for (int pack = 1; pack <= packs; ++pack) {
    for (int card = 1; card <= kCards; ++card) cards_.Add(card);
  }
  Shuffle();
}

void Feeder::LoadForReading(const Board& board, const wire::CardBytes& pockets) {
  LoadPack();
  auto& cards = cards_.cards_;
  for (std::size_t place = 0; place < kCards; ++place) {
    const std::size_t pocket = pockets.Bytes[place];
    if (pocket == 0 || pocket > kHands) continue;
    for (std::size_t at = place; at < kCards; ++at) {
      const auto card = static_cast<std::size_t>(wire::MachineCard(cards[at]).Card());
      if (board.Cards[card] != HandOfPocket[pocket]) continue;
      std::swap(cards[place], cards[at]);
      break;
    }
  }
}

bool Feeder::Prepare(const Pack& cards) {
  if (!IsWhole(cards)) return false;
  prepared_ = cards;
  return true;
}

void Feeder::Load(const Pile& pile) {
  Empty();
  cards_ = pile;
}

void Feeder::Lay(const Pile& pile) {
  Load(pile);
  laid_ = true;
}

void Feeder::Empty() {
  cards_.Clear();
  fed_ = 0;
  laid_ = false;
}

void Feeder::Shuffle() {
  for (std::size_t left = cards_.Count(); left > 1; --left) {
    std::swap(cards_.cards_[left - 1], cards_.cards_[Below(left)]);
  }
}

// The standard distributions differ from library to library; a seed must not.
std::size_t Feeder::Below(std::size_t limit) {
  const std::uint64_t bound = std::mt19937_64::max() - std::mt19937_64::max() % limit;
  std::uint64_t number = engine_();
  while (number >= bound) number = engine_();
  return static_cast<std::size_t>(number % limit);
}

}  // namespace morvane::simulator
