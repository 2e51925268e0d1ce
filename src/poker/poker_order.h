#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

namespace morvane::poker {

inline constexpr int kMostDeals = 100;
inline constexpr int kSlots = 28;
inline constexpr int kRuns = 4;  ///< of cards through the machine, that stack a deal

/// The cards that lie prepared on the pack: [slot 1..28] is a machine card 1..55, 0 = empty; slot 1
/// is the top card. Element 0 is unused.
using PokerDeal = std::array<std::uint8_t, kSlots + 1>;

/// The prepared deals of a card room, for a table of six players.
struct PokerOrder {
  std::array<PokerDeal, kMostDeals + 1> PokerDeals{};  ///< [deal 1..100]; element 0 is unused
  std::int16_t PokerDealCount = 0;                     ///< 1..100 once an order exists
  std::int16_t CurrentDeal = 1;                        ///< the deal shown
  bool PokerOrderExists = false;                       ///< one has been created or loaded

  std::string Poker_Event;
  std::string Poker_Site;
  std::string Poker_Date;
  std::string Poker_File;  ///< the file's name without its folder; empty: in none yet

  [[nodiscard]] PokerDeal& Current() { return PokerDeals[static_cast<std::size_t>(CurrentDeal)]; }
  [[nodiscard]] const PokerDeal& Current() const {
    return PokerDeals[static_cast<std::size_t>(CurrentDeal)];
  }
};

}  // namespace morvane::poker
