#include "wire/board_labels.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace morvane::wire {
namespace {

TEST(BoardLabels, AreTheSeventyCodesOfFourBits) {
  EXPECT_EQ(BoardLabelTable[15], 1);
  EXPECT_EQ(BoardLabelTable[23], 2);
  EXPECT_EQ(BoardLabelTable[27], 3);
  EXPECT_EQ(BoardLabelTable[240], 70);
  EXPECT_EQ(BoardLabelTable[0], 0);
  EXPECT_EQ(BoardLabelTable[255], 0);
  EXPECT_EQ(BoardLabelTable[16], 0);
  EXPECT_EQ(std::count(BoardLabelTable.begin(), BoardLabelTable.end(), 0), 256 - 70);
  EXPECT_EQ(LabelOfBoard(1), 15);
  EXPECT_EQ(LabelOfBoard(70), 240);
  EXPECT_EQ(LabelOfBoard(71), 0);
  EXPECT_EQ(LabelOfBoard(0), 0);
}

}  // namespace
}  // namespace morvane::wire
