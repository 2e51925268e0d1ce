#include "poker/deal_words.h"

#include <gtest/gtest.h>

namespace morvane::poker {
namespace {

TEST(PokerDealWords, EachSlotHasItsNumberItsNameAndItsCard) {
  PokerDeal deal{};
  deal[11] = 13;  // the ace of spades
  deal[12] = 14;  // the two of hearts
  deal[14] = 53;
  deal[20] = 35;  // the T of diamonds
  deal[28] = 52;
  EXPECT_EQ(SlotsInWords(deal, 11, 14),
            "11 Player 5: spades A. 12 Player 6: hearts 2. 13 BC: empty. 14 FLOP: joker.");
  EXPECT_EQ(SlotsInWords(deal, 20, 21), "20 R: diamonds T. 21: empty.");
  EXPECT_EQ(SlotsInWords(deal, 28, 28), "28: clubs A.");
}

}  // namespace
}  // namespace morvane::poker
