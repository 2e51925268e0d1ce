#pragma once

#include "model/board.h"
#include "model/tables.h"

namespace morvane::test {

/// Of four hands clockwise from `first`, here called N, E, S and W:
///   N  A of spades, diamonds but the two      E  spades but the ace, two of diamonds
///   S  the clubs                              W  the hearts
inline Board AsymmetricBoard(int first) {
  constexpr std::array<int, 4> kHandOfSuit{1, 3, 0, 2};  // S to E, H to W, D to N, C to S
  Board board = NumberedBoard(1);
  for (int card = 1; card <= kCards; ++card) {
    const int suit = CardSuit(card);
    int hand = kHandOfSuit[static_cast<std::size_t>(suit - 1)];
    if (suit == 1 && RankPosition(card) == 1) hand = 0;
    if (suit == 3 && RankPosition(card) == 13) hand = 1;
    board.Cards[static_cast<std::size_t>(card)] =
        static_cast<std::uint8_t>((first - 1 + hand) % kHands + 1);
  }
  AnalyzeBoard(board);
  return board;
}

/// Its levels, declarers N, E, S, W, each no-trump, spades, hearts, diamonds, clubs.
///  - No-trump: N is led a spade or the diamond and has 13 tricks; S is led 13 hearts. E is led
///    13 clubs, W 12 diamonds and a spade.
///  - Spades: with E the trumps are 12, and the ace and one diamond are lost: 11 tricks, whoever of
///    E and W plays.
///  - Hearts and clubs: one hand has them all, and ruffs the first trick of any lead.
///  - Diamonds: N's draw the two, and the ace of spades is the thirteenth trick.
inline constexpr const char* kAsymmetricResult = "70077057000007705700";

}  // namespace morvane::test
