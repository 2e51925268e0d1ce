#include "print/rank_letters.h"

#include <gtest/gtest.h>

#include "print/paper_boards.h"
#include "support/fakes.h"

namespace morvane::print {
namespace {

std::string AllSpades(int national, bool tenAsNumber) {
  PrintOptions options;
  options.National = national;
  options.TenAsNumber = tenAsNumber;
  return SuitOnPaper(test::SuitBoard(1), kNorth, 1, options);
}

TEST(RankLetters, AreThoseOfEachCountry) {
  EXPECT_EQ(AllSpades(0, false), "AKQJT98765432");
  EXPECT_EQ(AllSpades(1, false), "ARDVX98765432");
  EXPECT_EQ(AllSpades(2, false), "1RDVX98765432");
  EXPECT_EQ(AllSpades(3, false), "AKDBZ98765432");
  EXPECT_EQ(AllSpades(4, false), "AHVBT98765432");
  EXPECT_EQ(AllSpades(5, false), "EKDBT98765432");
  EXPECT_EQ(AllSpades(6, false), "EKDKnT98765432");
}

TEST(RankLetters, TheTenMayBeANumberInEachCountry) {
  EXPECT_EQ(AllSpades(0, true), "AKQJ1098765432");
  EXPECT_EQ(AllSpades(1, true), "ARDV1098765432");
  EXPECT_EQ(AllSpades(2, true), "1RDV1098765432");
  EXPECT_EQ(AllSpades(3, true), "AKDB1098765432");
  EXPECT_EQ(AllSpades(4, true), "AHVB1098765432");
  EXPECT_EQ(AllSpades(5, true), "EKDB1098765432");
  EXPECT_EQ(AllSpades(6, true), "EKDKn1098765432");
}

TEST(RankLetters, AHandHasOnlyItsOwnCardsOfTheSuit) {
  const Board board = test::VoidBoard(1);
  const PrintOptions options;
  EXPECT_EQ(SuitOnPaper(board, kNorth, 2, options), "");
  EXPECT_EQ(SuitOnPaper(board, kEast, 2, options), "AKQ432");
  EXPECT_EQ(SuitOnPaper(board, kSouth, 3, options), "QJT9");
  EXPECT_EQ(SuitOnPaper(board, kWest, 4, options), "98765");
}

}  // namespace
}  // namespace morvane::print
