#include "platform/qt/readable_colour.h"

#include <gtest/gtest.h>

namespace morvane {
namespace {

// White has luminance 1, black 0: (1 + 0.05) / (0 + 0.05) = 21.
TEST(ReadableColour, ContrastGoesFromOneToTwentyOne) {
  EXPECT_DOUBLE_EQ(Contrast(Qt::white, Qt::black), 21);
  EXPECT_DOUBLE_EQ(Contrast(Qt::black, Qt::white), 21);
  EXPECT_DOUBLE_EQ(Contrast(QColor(10, 200, 30), QColor(10, 200, 30)), 1);
}

// Pure red has luminance 0.2126: 1.05 / 0.2626 = 3.998. Blue 0.0722: 1.05 / 0.1222 = 8.592.
TEST(ReadableColour, EachColourHasItsWeight) {
  EXPECT_NEAR(Contrast(Qt::white, QColor(255, 0, 0)), 3.998, 0.001);
  EXPECT_NEAR(Contrast(Qt::white, QColor(0, 0, 255)), 8.592, 0.001);
  EXPECT_NEAR(Contrast(Qt::black, QColor(255, 0, 0)), 5.252, 0.001);
}

TEST(ReadableColour, WhatCanBeReadStaysAsItIs) {
  EXPECT_EQ(ReadableOn(Qt::white, QColor(192, 0, 0)), QColor(192, 0, 0));
  EXPECT_EQ(ReadableOn(Qt::black, QColor(255, 0, 0)), QColor(255, 0, 0));
}

TEST(ReadableColour, WhatCannotIsMadeLighterOrDarker) {
  const QColor dark(45, 45, 45);
  const QColor lighter = ReadableOn(dark, QColor(192, 0, 0));
  EXPECT_GE(Contrast(dark, lighter), 4.5);
  EXPECT_GT(lighter.red(), lighter.green()) << "still red";
  const QColor darker = ReadableOn(Qt::white, QColor(255, 0, 0));
  EXPECT_GE(Contrast(Qt::white, darker), 4.5);
  EXPECT_LT(darker.red(), 255);
}

TEST(ReadableColour, AnyGroundHasOne) {
  for (int grey = 0; grey < 256; ++grey) {
    const QColor ground(grey, grey, grey);
    EXPECT_GE(Contrast(ground, ReadableOn(ground, QColor(192, 0, 0))), 4.5) << grey;
  }
}

}  // namespace
}  // namespace morvane
