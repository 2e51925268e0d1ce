#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "poker/poker_order.h"
#include "wire/card_bytes.h"

namespace morvane::poker {

/// Where the cards of a deal go in each of its four runs, and where they have come to lie. The
/// machine sorts into pockets only, so East, West and South carry the digits of the slots to the
/// base 3, the lowest first, and the operator carries their piles back between the runs. Card
/// numbers are the machine's, 1..55; 0 = none.
class PilePlan {
 public:
  static constexpr std::uint8_t kNotExpected = 127;
  /// [place 1..]: the newest card first; element 0 is unused.
  using LongPile = std::array<std::uint8_t, 56>;
  using ShortPile = std::array<std::uint8_t, 11>;

  wire::CardBytes RouteTable;     ///< pocket 1..4 of each card in this run, 0 = no part of it
  wire::CardBytes ExpectedOrder;  ///< the how-manieth each card is to come; all 0 = not known
  LongPile FeedSequence{};        ///< [1]: the top of the feeder in the next run
  LongPile PileN{};
  ShortPile PileE{};
  ShortPile PileW{};
  ShortPile PileS{};

  void Clear() { *this = {}; }
  /// Run 1..4 of `deal`. From the second on it needs the feeder as `Gather` left it.
  void Begin(int run, const PokerDeal& deal);
  /// Reading: a pack in any order, all of it to North.
  void BeginReading();
  /// How many cards run 1..4 has.
  [[nodiscard]] static int CardsOfRun(int run);

  /// The piles as the run has left them: `log` says the how-manieth of its `count` cards each was.
  void Rebuild(const wire::CardBytes& log, int count);
  /// The feeder once the operator has carried the piles back behind run 1..3: East on the top,
  /// South at the bottom.
  void Gather(int run);
  /// How many cards the piles of East, West and South have that are to be carried behind run 1..3.
  [[nodiscard]] static std::array<int, 3> Carried(int run);

 private:
  void BeginFirst(const PokerDeal& deal);
  void Expect(int count);
  void Push(std::size_t pocket, std::size_t mostInNorth, std::uint8_t card);
};

/// Puts `card` on `pile` at element 1; what goes beyond element `size` is forgotten.
template <std::size_t N>
void PushPile(std::array<std::uint8_t, N>& pile, std::size_t size, std::uint8_t card) {
  for (std::size_t place = size; place > 1; --place) pile[place] = pile[place - 1];
  pile[1] = card;
}

/// The pocket 1 South, 2 West, 3 East, 4 North to which run 1..4 sends slot 1..28; slot 0 is a card
/// that the deal does not use.
[[nodiscard]] std::size_t PocketOfSlot(int run, int slot);

/// Whether `log` holds the numbers 1 to `count` once each, and no others.
[[nodiscard]] bool IsWhole(const wire::CardBytes& log, int count);

}  // namespace morvane::poker
