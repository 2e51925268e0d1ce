#include "generate/generate_line.h"

#include <gtest/gtest.h>

namespace morvane::generate {
namespace {

TEST(GenerateLine, OfADealtSetHasRangeSwitchesAndCounts) {
  const GenerateLine line{3, 34, GenerateLine::Tests{{true, false, true}, {7, 8, 9}}};
  EXPECT_EQ(line.Text(), "  Generate: 3,34 : 1,0,1 : 7,8,9");
}

TEST(GenerateLine, OfAnEmptySetHasTheRangeAlone) {
  EXPECT_EQ((GenerateLine{1, 640, std::nullopt}).Text(), "  Generate: 1,640");
}

TEST(GenerateLine, IsReadAsItWasWritten) {
  const auto dealt = GenerateLine::Parse("  Generate: 2,640 : 0,1,0 : 10,0,2147483647");
  ASSERT_TRUE(dealt && dealt->Dealt);
  EXPECT_EQ(dealt->First, 2);
  EXPECT_EQ(dealt->Last, 640);
  EXPECT_FALSE(dealt->Dealt->On.Shape);
  EXPECT_TRUE(dealt->Dealt->On.Inner);
  EXPECT_FALSE(dealt->Dealt->On.History);
  EXPECT_EQ(dealt->Dealt->Rejected, (RejectCounts{10, 0, 2147483647}));
  const auto empty = GenerateLine::Parse("  Generate: 7,7");
  ASSERT_TRUE(empty);
  EXPECT_EQ(empty->First, 7);
  EXPECT_EQ(empty->Last, 7);
  EXPECT_FALSE(empty->Dealt);
}

TEST(GenerateLine, AnythingElseIsNone) {
  for (const char* text : {"",
                           "  Generate: ",
                           "  Generate: 1",
                           "  Generate: 1,",
                           "  Generate: a,b",
                           "  Generate: 1,32 ",
                           "  Generate: 1,32 :",
                           "  Generate: 1,32 : ",
                           "  Generate: 1,32 : 0,0,0",
                           "  Generate: 1,32 : 0,0,0 : 0,0",
                           "  Generate: 1,32 : 0,0,0 : ",
                           "  Generate: 1,32 : 0,0,0 : 0,0,0 ",
                           "  Generate: 1,32 : 0,0,0 : 0,0,0,0",
                           "  Generate: 1,32 : 0,0,2 : 0,0,0",
                           "  Generate: 1,32 : 0,0,0 : 0,0,-1",
                           "  Generate: 1,32 : 0,0,0 : 0,0,01",
                           "  Generate: 1,32 : 0,0,0 : 0,0,2147483648",
                           "  Generate: 1,32 : 0;0,0 : 0,0,0",
                           "  generate: 1,32",
                           "Generate: 1,32",
                           "  Generate: 1;32",
                           "  Generate: 01,32",
                           "  Generate: +1,32",
                           "  Generate: 99999999999999999999,3"}) {
    EXPECT_FALSE(GenerateLine::Parse(text)) << text;
  }
}

TEST(GenerateLine, ARangeThatCannotBeGeneratedIsNone) {
  for (const char* text : {"  Generate: 0,32", "  Generate: 5,4", "  Generate: 1,641",
                           "  Generate: 641,641", "  Generate: 1,99999 : 0,0,0 : 0,0,0"}) {
    EXPECT_FALSE(GenerateLine::Parse(text)) << text;
  }
  EXPECT_TRUE(GenerateLine::Parse("  Generate: 640,640"));
}

}  // namespace
}  // namespace morvane::generate
