#include "poker/card_text.h"

#include <gtest/gtest.h>

#include <string>

namespace morvane::poker {
namespace {

std::string Whole(int number) {
  const CardText card = CardTextOf(number);
  return std::string(card.Sign) + std::string(card.Rank);
}

TEST(PokerCardText, EachSuitOfTheMachineGoesFromTheTwoToTheAce) {
  EXPECT_EQ(Whole(1), "\u26602");
  EXPECT_EQ(Whole(9), "\u2660T");
  EXPECT_EQ(Whole(13), "\u2660A");
  EXPECT_EQ(Whole(14), "\u26652");
  EXPECT_EQ(Whole(26), "\u2665A");
  EXPECT_EQ(Whole(27), "\u26662");
  EXPECT_EQ(Whole(38), "\u2666K");
  EXPECT_EQ(Whole(39), "\u2666A");
  EXPECT_EQ(Whole(40), "\u26632");
  EXPECT_EQ(Whole(52), "\u2663A");
}

TEST(PokerCardText, TheRanksOfASuitAreTheLettersInOrder) {
  for (int suit = 0; suit < 4; ++suit) {
    std::string ranks;
    for (int rank = 1; rank <= 13; ++rank) ranks += CardTextOf(13 * suit + rank).Rank;
    EXPECT_EQ(ranks, "23456789TJQKA");
    EXPECT_EQ(CardTextOf(13 * suit + 5).Suit, suit + 1);
  }
}

TEST(PokerCardText, AJokerHasNoSuit) {
  for (const int joker : {53, 54, 55}) {
    EXPECT_EQ(Whole(joker), "JK");
    EXPECT_EQ(CardTextOf(joker).Suit, 0);
    EXPECT_FALSE(CardTextOf(joker).Red);
  }
}

TEST(PokerCardText, AnEmptySlotHasNoText) {
  EXPECT_EQ(Whole(0), "");
  EXPECT_EQ(CardTextOf(0).Suit, 0);
}

TEST(PokerCardText, HeartsAndDiamondsAreRed) {
  EXPECT_FALSE(CardTextOf(13).Red);
  EXPECT_TRUE(CardTextOf(14).Red);
  EXPECT_TRUE(CardTextOf(39).Red);
  EXPECT_FALSE(CardTextOf(40).Red);
}

}  // namespace
}  // namespace morvane::poker
