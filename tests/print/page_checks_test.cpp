#include "print/page_checks.h"

#include <gtest/gtest.h>

namespace morvane::test {
namespace {

constexpr Colour kInk{};
constexpr Font kTen{Typeface::kArial, 10};
constexpr Area kSheet{0, 0, 100, 100};

std::size_t FaultsOf(const RecordingCanvas& canvas) {
  return PageFaults(canvas.Pages.front(), kSheet).size();
}

TEST(PageChecks, LettersEndOnTheBaselineUnlessTheyHaveTails) {
  // Size 10: the baseline is 9 below the top, capitals reach 7.2 above it, tails 2.1 below.
  const DrawnText capitals{"AK", 20, 30, 10, kTen, kInk};
  EXPECT_DOUBLE_EQ(InkOf(capitals).Y, 31.8);
  EXPECT_DOUBLE_EQ(InkOf(capitals).Height, 7.2);
  const DrawnText tails{"AQ", 20, 30, 10, kTen, kInk};
  EXPECT_DOUBLE_EQ(InkOf(tails).Height, 9.3);
}

TEST(PageChecks, TextsMayTouchAndNotOverlap) {
  RecordingCanvas canvas;
  canvas.Text(10, 10, "AA", kTen, kInk);  // 10..20 wide
  canvas.Text(20, 10, "AA", kTen, kInk);  // beside
  canvas.Text(10, 17.5, "AA", kTen,
              kInk);  // below: the letters above end at 19, these begin at 19.3
  EXPECT_EQ(FaultsOf(canvas), 0U);
  canvas.Text(39, 10, "A", kTen, kInk);
  canvas.Text(43, 15, "A", kTen, kInk);  // 43..48 by 16.8..24 over 39..44 by 11.8..19
  EXPECT_EQ(FaultsOf(canvas), 1U);
}

TEST(PageChecks, NoRuleRunsThroughAText) {
  RecordingCanvas canvas;
  canvas.Text(10, 10, "AA", kTen, kInk);
  canvas.Rule(0, 19, 100, 19, kInk);  // along the baseline
  canvas.Rule(20, 0, 20, 100, kInk);  // along its end
  EXPECT_EQ(FaultsOf(canvas), 0U);
  canvas.Rule(15, 0, 15, 100, kInk);
  canvas.Rule(0, 15, 100, 15, kInk);
  EXPECT_EQ(FaultsOf(canvas), 2U);
}

TEST(PageChecks, NothingLeavesThePage) {
  RecordingCanvas canvas;
  canvas.Text(90, 10, "AA", kTen, kInk);
  canvas.Rule(0, 100, 5, 100, kInk);
  canvas.Fill(kSheet, kInk);
  EXPECT_EQ(FaultsOf(canvas), 0U);
  canvas.Text(90.1, 30, "AA", kTen, kInk);
  canvas.Text(10, 91.1, "A", kTen, kInk);
  canvas.Rule(0, 0, 100.1, 0, kInk);
  canvas.Fill({-0.1, 0, 10, 10}, kInk);
  EXPECT_EQ(FaultsOf(canvas), 4U);
}

}  // namespace
}  // namespace morvane::test
