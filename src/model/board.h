#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "model/tables.h"

namespace morvane {

/// One deal. `Cards` is the truth; `HandCount`, `Shape`, `Hcp`, `ShortPoints` and `Status` follow
/// from it and are written by `AnalyzeBoard` alone, after every change of `Cards`.
struct Board {
  std::int16_t Number = 0;
  std::array<std::uint8_t, 53> Cards{};       ///< [card 1..52]: the hand 1..4 that holds it, 0 none
  std::array<std::uint8_t, 5> HandCount{};    ///< [hand]: cards held
  std::array<std::uint8_t, 5> Shape{};        ///< [hand]: index into `Shapes`, 0 unless 13 cards
  std::array<std::uint8_t, 5> Hcp{};          ///< [hand]: high-card points
  std::array<std::uint8_t, 5> ShortPoints{};  ///< [hand]: void 3, singleton 2, doubleton 1, summed
  std::uint8_t Status = 0;                    ///< kEmpty, kIncomplete or kComplete
  std::uint8_t Dealer = 0;                    ///< hand 1..4, 0 = by the board number
  std::uint8_t Vul = 0;                       ///< 1 None 2 NS 3 EW 4 All, 0 = by the board number
  /// Highest makeable level 0..7 at hand x 5 + denomination: hands 0 North .. 3 West, denominations
  /// 0 no-trump, 1 spades .. 4 clubs. Element 20 stays 0. All zero: not analysed.
  std::array<std::uint8_t, 21> Tricks{};
  std::array<std::uint8_t, 12> DealNumber{};  ///< big-endian; zero unless the number generator's
  std::array<std::uint8_t, 4> DealCounter{};  ///< the generator's block counter, big-endian

  static constexpr std::uint8_t kEmpty = 0;
  static constexpr std::uint8_t kIncomplete = 1;
  static constexpr std::uint8_t kComplete = 2;

  bool operator==(const Board&) const = default;
};

/// Computes all derived fields from `Cards`; the number of hands that hold exactly 13 cards.
int AnalyzeBoard(Board& board);

/// The cards of an analysed board that some hand holds.
[[nodiscard]] int CardsHeld(const Board& board);

/// The four suit lengths of `hand` in descending order, one character each. A suit of thirteen
/// contributes none ("000"), unlike in `AnalyzeBoard`: required.
[[nodiscard]] std::string GetHandShape(const Board& board, int hand);

/// The dealer 1..4 and the vulnerability 1..4 of `board` at place `n`.
[[nodiscard]] int BoardDealer(const Board& board, int n);
[[nodiscard]] int BoardVul(const Board& board, int n);

/// 0: the cards differ. 2: cards, `Number`, `Dealer` and `Vul` are equal. 1: only the cards are.
[[nodiscard]] int CompareBoards(const Board& a, const Board& b);

/// Gives card 1..52 to `hand`. False, and nothing done, when a hand holds it already.
[[nodiscard]] bool GiveCard(Board& board, int card, int hand);

/// The empty board that stands at place `n` of a set, with dealer and vulnerability by its number.
[[nodiscard]] Board NumberedBoard(int n);
/// The same with the cards of `dealt`, analysed.
[[nodiscard]] Board NumberedBoard(int n, const Board& dealt);

/// The cards of a board hand by hand: [hand][suit][0] is the length of the suit, [hand][suit][1..]
/// the cards in card order, [hand][0][0] the hand's high-card points.
using HandCards = std::array<std::array<std::array<std::uint8_t, 14>, 5>, 5>;
[[nodiscard]] HandCards FillHandCards(const Board& board);

}  // namespace morvane
