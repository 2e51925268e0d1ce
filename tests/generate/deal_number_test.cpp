#include "generate/deal_number.h"

#include <random>

#include "generate/reference.h"
#include "model/tables.h"

namespace morvane::generate {
namespace {

using reference::BytesOfWide;
using reference::EncodeDeal;
using reference::Wide;
using reference::WideOfBytes;

Board Decoded(Wide number) {
  Board board;
  DecodeDeal(DealNumber::OfBytes(BytesOfWide(number)), board);
  AnalyzeBoard(board);
  return board;
}

/// Whether `hand` holds exactly the suit.
bool HoldsSuit(const Board& board, int hand, int suit) {
  for (int card = 1; card <= kCards; ++card) {
    const bool held = board.Cards[static_cast<std::size_t>(card)] == hand;
    if (held != (CardSuit(card) == suit)) return false;
  }
  return true;
}

const Wide kDeals = WideOfBytes(MaxDealNumber.Bytes());

TEST(DealNumber, TheNumberOfDealsIs52FactorialOver13FactorialToTheFourth) {
  const Wide deals = reference::Choose(52, 13) * reference::Choose(39, 13) *
                     reference::Choose(26, 13) * reference::Choose(13, 13);
  EXPECT_TRUE(kDeals == deals);
  EXPECT_TRUE(deals ==
              static_cast<Wide>(53644737765488ULL) * 1'000'000'000'000'000ULL + 792839237440000ULL);
}

TEST(DealNumber, IsTwelveBytesWithTheMostSignificantFirst) {
  EXPECT_EQ(MaxDealNumber.Bytes(),
            (std::array<std::uint8_t, 12>{0xAD, 0x55, 0xE3, 0x15, 0x63, 0x4D, 0xDA, 0x65, 0x8B,
                                          0xF4, 0x92, 0x00}));
  EXPECT_EQ(DealNumber::OfBytes(MaxDealNumber.Bytes()), MaxDealNumber);
}

TEST(DealNumber, IsComparedByItsFirstDifferingByte) {
  const DealNumber small{{0xAD55E315, 0x634DDA65, 0x8BF491FF}};
  const DealNumber large{{0xAD55E316, 0, 0}};
  EXPECT_LT(small, MaxDealNumber);
  EXPECT_GT(large, MaxDealNumber);
  EXPECT_FALSE(MaxDealNumber < MaxDealNumber);
}

TEST(DealNumber, DividesAllItsBits) {
  std::mt19937_64 random(7);
  for (int i = 0; i < 1000; ++i) {
    const Wide value = (static_cast<Wide>(random()) << 64 | random()) >> 32;
    const auto divisor = static_cast<std::uint32_t>(random() | 1U);
    DealNumber number = DealNumber::OfBytes(BytesOfWide(value));
    const std::uint32_t rest = number.DivideBy(divisor);
    EXPECT_TRUE(WideOfBytes(number.Bytes()) == value / divisor);
    EXPECT_TRUE(rest == value % divisor);
  }
}

TEST(DecodeDeal, NumberZeroGivesNorthTheClubsEastTheDiamondsSouthTheHeartsWestTheSpades) {
  const Board board = Decoded(0);
  EXPECT_TRUE(HoldsSuit(board, kNorth, 4));
  EXPECT_TRUE(HoldsSuit(board, kEast, 3));
  EXPECT_TRUE(HoldsSuit(board, kSouth, 2));
  EXPECT_TRUE(HoldsSuit(board, kWest, 1));
}

TEST(DecodeDeal, TheGreatestNumberGivesTheReverse) {
  const Board board = Decoded(kDeals - 1);
  EXPECT_TRUE(HoldsSuit(board, kNorth, 1));
  EXPECT_TRUE(HoldsSuit(board, kEast, 2));
  EXPECT_TRUE(HoldsSuit(board, kSouth, 3));
  EXPECT_TRUE(HoldsSuit(board, kWest, 4));
}

TEST(DecodeDeal, NumberOneMovesOneCardBetweenTheHandsDealtLast) {
  // South's second choice: all hearts but the last in the list, the Ace, which goes to West, and
  // the first of West's, the Two of Spades.
  const Board first = Decoded(0);
  const Board second = Decoded(1);
  for (std::size_t card = 1; card <= kCards; ++card) {
    const int expected = card == 14 ? kWest : card == 13 ? kSouth : first.Cards[card];
    EXPECT_EQ(second.Cards[card], expected) << card;
  }
}

TEST(DecodeDeal, OneChoiceOfTheHandsToComeMovesNorth) {
  // North's second choice: all clubs but the Ace, and the Two of Diamonds.
  const Board board = Decoded(reference::Choose(39, 13) * reference::Choose(26, 13));
  EXPECT_EQ(board.Cards[40], kEast);
  EXPECT_EQ(board.Cards[39], kNorth);
  EXPECT_EQ(board.Cards[41], kNorth);
}

TEST(DecodeDeal, AndTheIndependentEncoderAreInverse) {
  std::mt19937_64 random(20260303);
  for (int i = 0; i < 100'000; ++i) {
    const Wide number = (static_cast<Wide>(random()) << 64 | random()) % kDeals;
    Board board;
    DecodeDeal(DealNumber::OfBytes(BytesOfWide(number)), board);
    ASSERT_TRUE(EncodeDeal(board) == number) << i;
  }
}

TEST(DecodeDeal, AtTheEdgesTheEncoderAgreesToo) {
  const Wide north = reference::Choose(39, 13) * reference::Choose(26, 13);
  const Wide east = reference::Choose(26, 13);
  for (const Wide number : {Wide{0}, Wide{1}, east - 1, east, east + 1, north - 1, north, north + 1,
                            kDeals - north, kDeals - 1}) {
    const Board board = Decoded(number);
    EXPECT_EQ(board.Status, Board::kComplete);
    EXPECT_TRUE(EncodeDeal(board) == number);
  }
}

}  // namespace
}  // namespace morvane::generate
