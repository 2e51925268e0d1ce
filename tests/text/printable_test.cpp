#include "text/printable.h"

#include <gtest/gtest.h>

#include "text/columns.h"

namespace morvane {
namespace {

TEST(Printable, WhatCouldCommandATerminalIsAQuestionMark) {
  EXPECT_EQ(Printable("a\x1B[2J\x7F"
                      "b\r"),
            "a?[2J?b?");
  EXPECT_EQ(Printable("\xC2\x9B"
                      "31m \xC2\x90 \xC2\x9D"),
            "?31m ? ?")
      << "the second set of commands";
}

TEST(Printable, LettersOfOtherTonguesStay) {
  EXPECT_EQ(Printable("Ż\xC2\xA0ó\xC3\x9Bł"), "Ż\xC2\xA0ó\xC3\x9Bł");
}

TEST(Printable, LinesStayUnlessItIsToBeOne) {
  EXPECT_EQ(Printable("one\ntwo"), "one\ntwo");
  EXPECT_EQ(PrintableLine("one\ntwo\t\xC2\x9D"), "one?two??");
}

TEST(Columns, AreFilledByCharacters) {
  EXPECT_EQ(LeftAligned("♠A", 4), "♠A  ");
  EXPECT_EQ(RightAligned("♠A", 4), "  ♠A");
  EXPECT_EQ(LeftAligned("Żółw", 4), "Żółw");
  EXPECT_EQ(LeftAligned("Żółwie", 4), "Żółwie");
}

}  // namespace
}  // namespace morvane
