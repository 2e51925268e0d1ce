#include "maintenance/value_box.h"

#include <gtest/gtest.h>

namespace morvane::maintenance {
namespace {

constexpr BoxLimits kThreshold{.Upper = 90, .Lower = 10};

/// The box after `typed` has been typed into it, the caret behind it.
std::string Typed(ValueBox& box, const std::string& typed) {
  FilteredBox shown{typed, static_cast<int>(typed.size())};
  box.Change(shown);
  EXPECT_EQ(shown.Text, box.Text());
  return shown.Text;
}

TEST(ValueBox, ALeadingZeroGivesWayToTheLastGoodText) {
  ValueBox box;
  box.Take(12);
  EXPECT_EQ(Typed(box, "007"), "12");
  EXPECT_EQ(Typed(box, "0"), "0");
}

TEST(ValueBox, TooHighANumberIsRefusedAtOnce) {
  ValueBox box;
  EXPECT_EQ(Typed(box, "255"), "255");
  EXPECT_EQ(Typed(box, "256"), "255");
  ValueBox threshold(kThreshold);
  EXPECT_EQ(Typed(threshold, "90"), "90");
  EXPECT_EQ(Typed(threshold, "91"), "90");
}

TEST(ValueBox, TakesAsManyBitsAsItsLimitHas) {
  ValueBox box(BoxLimits{.Upper = 4'294'967'295});
  EXPECT_EQ(Typed(box, "4294967295"), "4294967295");
  EXPECT_EQ(box.WideValue(), 4'294'967'295);
  EXPECT_EQ(Typed(box, "4294967296"), "4294967295");
  EXPECT_EQ(Typed(box, "18446744073709551617"), "4294967295");
  box.Put(5'000'000'000);
  EXPECT_EQ(box.Text(), "4294967295");
  box.Take(4'294'967'295);
  EXPECT_FALSE(box.Edited());
}

TEST(ValueBox, LettersAreRefusedAndTheCaretStepsBack) {
  ValueBox box;
  box.Take(4);
  FilteredBox shown{"4x", 2};
  box.Change(shown);
  EXPECT_EQ(shown.Text, "4");
  EXPECT_EQ(shown.Caret, 1);
  shown = {"x4", 0};
  box.Change(shown);
  EXPECT_EQ(shown.Caret, 0);
}

TEST(ValueBox, AnEmptyBoxIsLeftWithItsLowerLimit) {
  for (const auto& [limits, text] :
       {std::pair{BoxLimits{}, "0"}, {BoxLimits{255, 1}, "1"}, {kThreshold, "10"}}) {
    ValueBox box(limits);
    EXPECT_EQ(Typed(box, ""), "");
    box.Leave();
    EXPECT_EQ(box.Text(), text);
  }
}

TEST(ValueBox, TooLowANumberStandsUntilTheBoxIsLeft) {
  ValueBox threshold(kThreshold);
  EXPECT_EQ(Typed(threshold, "9"), "9");
  threshold.Leave();
  EXPECT_EQ(threshold.Text(), "10");
  ValueBox position(BoxLimits{255, 1});
  EXPECT_EQ(Typed(position, "0"), "0");
  position.Leave();
  EXPECT_EQ(position.Text(), "1");
}

TEST(ValueBox, IsKnownOnceTheMachineHasToldItsValue) {
  ValueBox box;
  EXPECT_FALSE(box.Known());
  Typed(box, "8");
  EXPECT_FALSE(box.Known());
  EXPECT_FALSE(box.Edited()) << "there is nothing that it differs from";
  box.Take(0);
  EXPECT_TRUE(box.Known());
}

TEST(ValueBox, IsEditedWhereItDiffersFromTheMachine) {
  ValueBox box;
  box.Take(7);
  EXPECT_FALSE(box.Edited());
  Typed(box, "8");
  EXPECT_TRUE(box.Edited());
  EXPECT_EQ(box.Value(), 8);
  box.Take(8);
  EXPECT_FALSE(box.Edited());
}

}  // namespace
}  // namespace morvane::maintenance
