#include "model/statistics_bars.h"

#include "support/fakes.h"

namespace morvane {
namespace {

using ::testing::IsEmpty;
using ::testing::SizeIs;

TEST(ShapeBars, AreThoseOfTheRowsWithTheUnroundedExpectation) {
  SetTotals totals;
  totals.CompletedBoards = 1;
  totals.ShapeCount[1] = 2;
  totals.ShapeCount[39] = 2;
  const auto bars = ShapeBars(totals);
  ASSERT_THAT(bars, SizeIs(3));
  EXPECT_EQ(bars[0].Text(), "4432: 2, expected 0.9");
  EXPECT_NEAR(bars[0].Expected, 0.862048, 1e-6);
  EXPECT_EQ(bars[2].Text(), "5431: 0, expected 0.5");
}

TEST(PointBars, GoTwoByTwoAndTogetherFrom22On) {
  SetTotals totals;
  totals.CompletedBoards = 250;
  totals.HandsByHcp[0] = 3;
  totals.HandsByHcp[1] = 4;
  totals.HandsByHcp[21] = 5;
  totals.HandsByHcp[22] = 6;
  totals.HandsByHcp[37] = 7;
  const auto bars = PointBars(totals);
  ASSERT_THAT(bars, SizeIs(12));
  // 0.3639 % of the hands have no point and 0.7884 % have one.
  EXPECT_EQ(bars[0].Text(), "0-1: 7, expected 11.5");
  EXPECT_EQ(bars[10].Name, "20-21");
  EXPECT_EQ(bars[10].Actual, 5);
  EXPECT_EQ(bars[11].Name, "22+");
  EXPECT_EQ(bars[11].Actual, 13);
  double expected = 0;
  for (const CountBar& bar : bars) expected += bar.Expected;
  EXPECT_NEAR(expected, 1000, 1e-9);
}

TEST(PointBars, OfNoCompleteBoardAreNone) {
  EXPECT_THAT(PointBars(SetTotals()), IsEmpty());
  EXPECT_THAT(ShapeBars(SetTotals()), IsEmpty());
}

}  // namespace
}  // namespace morvane
