#include "model/statistics_text.h"

#include "support/fakes.h"

namespace morvane {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(ShapeRows, OfOneBoardAreThreeWithTheirDifference) {
  SetTotals totals;
  totals.CompletedBoards = 1;
  totals.ShapeCount[1] = 3;
  totals.ShapeCount[3] = 1;
  EXPECT_THAT(ShapeRows(totals), ElementsAre(ShapeRow{"4432", "   3", "   1", "+2"},
                                             ShapeRow{"5332", "   0", "   1", " -1"},
                                             ShapeRow{"5431", "   1", "   1", "  0"}));
}

TEST(ShapeRows, LeaveOutRareShapesThatOccurred) {
  SetTotals totals;
  totals.CompletedBoards = 1;
  totals.ShapeCount[39] = 4;
  EXPECT_EQ(ShapeRows(totals).size(), 3U);
}

TEST(ShapeRows, OfNoCompleteBoardAreNone) { EXPECT_THAT(ShapeRows(SetTotals()), IsEmpty()); }

TEST(ShapeRows, LongNumbersAreWholeAndAPlusStandsBeforeThem) {
  SetTotals totals;
  totals.CompletedBoards = 640;
  totals.ShapeCount[1] = 2560;
  const auto rows = ShapeRows(totals);
  EXPECT_EQ(rows.at(0), (ShapeRow{"4432", "2560", " 552", "+2008"}));
  EXPECT_EQ(rows.at(1), (ShapeRow{"5332", "   0", " 397", "-397"}));
  EXPECT_EQ(rows.at(5), (ShapeRow{"6322", "   0", " 144", "-144"}));
  EXPECT_EQ(rows.at(10), (ShapeRow{"7321", "   0", "  48", "-48"}));
}

TEST(HandRows, HaveTheHandsInTheirOrderAndTheSums) {
  SetTotals totals;
  totals.CompletedBoards = 8;
  totals.HcpTotal = {0, 81, 79, 88, 72};  // N E S W
  totals.BalancedHands = {0, 1, 2, 3, 4};
  totals.VoidCount = {0, 9, 90, 1, 10};
  totals.SingletonCount = {0, 100, 0, 899, 0};
  EXPECT_THAT(
      HandRows(totals),
      ElementsAre(HandRow{"Average HCP:", {"10.13", "11.00", "9.88", "9.00", "21.13", "18.88"}},
                  HandRow{"Balanced Hands:", {"   1", "   3", "   2", "   4", "   4", "   6"}},
                  HandRow{"Voids:", {"   9", "   1", "  90", "  10", "  10", " 100"}},
                  HandRow{"Singletons:", {" 100", " 899", "   0", "   0", " 999", "   0"}},
                  HandRow{"Long suits (7+):", {"   0", "   0", "   0", "   0", "   0", "   0"}}));
}

TEST(HandRows, AnAverageHalfwayRoundsUp) {
  SetTotals totals;
  totals.CompletedBoards = 200;
  totals.HcpTotal = {0, 2001, 1999, 1, 0};
  // 10.005, 9.995 and 0.005, none of which a binary fraction holds.
  EXPECT_THAT(HandRows(totals).front().Cells,
              ElementsAre("10.01", "0.01", "10.00", "0.00", "10.01", "10.00"));
}

TEST(HandRows, WithoutACompleteBoardHaveTheirNameAlone) {
  const auto rows = HandRows(SetTotals());
  ASSERT_EQ(rows.size(), 5U);
  EXPECT_EQ(rows[4].Name, "Long suits (7+):");
  for (const HandRow& row : rows) EXPECT_THAT(row.Cells, ::testing::Each("")) << row.Name;
}

TEST(FrequencyText, NamesShareCardAndHand) {
  EXPECT_EQ(FrequencyText({1, 1, kNorth}, 1), "100% A♠ N");
  EXPECT_EQ(FrequencyText({0, 52, kWest}, 7), "0% 2♣ W");
  EXPECT_EQ(FrequencyText({235, 15, kSouth}, 640), "37% K♥ S");  // 36.7
  EXPECT_EQ(FrequencyText({1, 30, kEast}, 8), "13% J♦ E") << "12.5 rounds up";
  EXPECT_EQ(FrequencyText({2, 30, kEast}, 16), "13% J♦ E");
  EXPECT_EQ(FrequencyText({23, 27, kEast}, 200), "12% A♦ E") << "11.5 rounds up";
}

}  // namespace
}  // namespace morvane
