#pragma once

#include <algorithm>
#include <map>

#include "simulator/talk.h"

// Stacking a pack by four runs, planned here once more from the table of places, so that no mistake
// of the program is repeated.

namespace morvane::simulator {

constexpr std::uint8_t kS = 1;
constexpr std::uint8_t kW = 2;
constexpr std::uint8_t kE = 3;
constexpr std::uint8_t kN = 4;

/// A byte for each machine card, element 0 belongs to card 1.
using ByCard = std::array<std::uint8_t, 55>;

inline ByCard Everywhere(std::uint8_t value) {
  ByCard bytes{};
  bytes.fill(value);
  return bytes;
}
inline std::uint8_t& At(ByCard& bytes, int card) {
  return bytes.at(static_cast<std::size_t>(card) - 1);
}

/// A plain frame with `bytes` from byte 8 on.
inline Bytes CardsFrame(const Bytes& head, const ByCard& bytes) {
  Bytes plain(136);
  std::copy(head.begin(), head.end(), plain.begin());
  std::copy(bytes.begin(), bytes.end(), plain.begin() + 8);
  return plain;
}
inline Bytes RouteFrame(int count, const ByCard& order) {
  return CardsFrame({0x9F, static_cast<std::uint8_t>(count), 0, 0, 0, 0, 0xAB}, order);
}
inline Bytes StackFrame(const ByCard& pockets, bool goOn = false) {
  return CardsFrame({0x98, static_cast<std::uint8_t>(goOn ? 1 : 0), 0, 0, 11, 36, 0}, pockets);
}

/// What one run is told.
struct StackRun {
  int Count = 52;
  ByCard Order{};
  ByCard Pockets = Everywhere(kN);
};

/// The cards of `deck` 1.., shuffled by `seed`.
inline std::vector<int> Shuffled(int cards, std::uint64_t seed) {
  std::mt19937_64 engine(seed);
  std::vector<int> deck(static_cast<std::size_t>(cards));
  std::iota(deck.begin(), deck.end(), 1);
  for (std::size_t left = deck.size(); left > 1; --left) {
    std::swap(deck[left - 1], deck[engine() % left]);
  }
  return deck;
}

class Stacking : public testing::Test {
 protected:
  Talk talk;
  /// The card of slot 1 first; 28 of them.
  std::vector<int> deal = [] {
    std::vector<int> cards = Shuffled(52, 28);
    cards.resize(28);
    return cards;
  }();

  /// The pocket of the card for slot p 1..28 in run 2, 3 and 4.
  static std::uint8_t PocketOf(int run, int p) {
    constexpr std::array<std::uint8_t, 3> kDigit{kE, kW, kS};
    const auto of = [&](int digit) { return kDigit.at(static_cast<std::size_t>(digit % 3)); };
    if (run == 4 || (run == 2 && p == 28)) return kN;
    return of(run == 2 ? (p - 1) / 3 : (p - 1) / 9);
  }

  [[nodiscard]] StackRun FirstRun() const {
    StackRun run;
    for (int p = 1; p <= 28; ++p) {
      constexpr std::array<std::uint8_t, 3> kDigit{kE, kW, kS};
      At(run.Pockets, deal.at(static_cast<std::size_t>(p - 1))) =
          kDigit.at(static_cast<std::size_t>((p - 1) % 3));
    }
    return run;
  }
  /// Run 2, 3 or 4 of the cards that lie in East, West and South.
  StackRun NextRun(int number) {
    StackRun run;
    run.Order = Everywhere(127);
    run.Pockets = Everywhere(0);
    run.Count = 0;
    for (const int card : Carried()) {
      At(run.Order, card) = static_cast<std::uint8_t>(++run.Count);
      const auto slot = std::find(deal.begin(), deal.end(), card) - deal.begin() + 1;
      At(run.Pockets, card) = PocketOf(number, static_cast<int>(slot));
    }
    return run;
  }
  /// The cards of the piles as a person carries them, the first one to be fed first.
  [[nodiscard]] std::vector<int> Carried() const {
    std::vector<int> cards;
    const auto piles = talk.Machine.MachineCardsByPocket();
    for (const std::uint8_t pocket : {kS, kW, kE}) {
      cards.insert(cards.end(), piles[pocket].begin(), piles[pocket].end());
    }
    return cards;
  }

  void Start(const StackRun& run) {
    ASSERT_TRUE(talk.Accepted(RouteFrame(run.Count, run.Order)));
    ASSERT_TRUE(talk.Accepted(StackFrame(run.Pockets)));
  }
  /// The state in which the run ends.
  std::uint8_t EndOf(const StackRun& run) {
    Start(run);
    return talk.PollToEnd();
  }
  void RunTo(int last) {
    ASSERT_EQ(EndOf(FirstRun()), 0);
    for (int number = 2; number <= last; ++number) ASSERT_EQ(EndOf(NextRun(number)), 0) << number;
  }
  void Poll(int polls) {
    for (int poll = 1; poll <= polls; ++poll) talk.Status();
  }
  /// The cards that fell, first one first, as the card log tells.
  std::vector<int> Log() {
    const Bytes reply = talk.Ask({0x20});
    std::map<int, int> fallen;
    for (int card = 1; card <= 55; ++card) {
      const int number = reply.at(static_cast<std::size_t>(card) + 7);
      if (number == 0) continue;
      EXPECT_TRUE(fallen.emplace(number, card).second) << number << " twice";
    }
    std::vector<int> cards;
    for (const auto& [number, card] : fallen) {
      cards.push_back(card);
      EXPECT_EQ(number, static_cast<int>(cards.size())) << "a number is left out";
    }
    return cards;
  }
  /// South, West, East, North as the status tells.
  Bytes Counts() {
    const Bytes reply = talk.Status();
    return {reply.begin() + 2, reply.begin() + 6};
  }
  /// The topmost card first.
  [[nodiscard]] std::vector<int> PileOf(std::uint8_t pocket) const {
    auto pile = talk.Machine.MachineCardsByPocket().at(pocket);
    std::reverse(pile.begin(), pile.end());
    return pile;
  }
  /// The upper 28 cards in North.
  [[nodiscard]] std::vector<int> Stack() const {
    auto pile = PileOf(kN);
    pile.resize(28);
    return pile;
  }
};

}  // namespace morvane::simulator
