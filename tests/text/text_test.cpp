#include "text/text.h"

#include <gtest/gtest.h>

#include "text/number_filter.h"

namespace morvane {
namespace {

TEST(Text, HexadecimalIsUpperCase) {
  EXPECT_EQ(Hex2(0xAF), "AF");
  EXPECT_EQ(Hex8(0x00C0FFEE), "00C0FFEE");
  EXPECT_EQ(BytesOfHex("c0FF"), (std::vector<std::uint8_t>{0xC0, 0xFF}));
  EXPECT_EQ(BytesOfHex(""), std::vector<std::uint8_t>());
  EXPECT_EQ(BytesOfHex("c0F"), std::nullopt);
  EXPECT_EQ(BytesOfHex("g0"), std::nullopt);
}

TEST(Text, NumbersOfTheLogAndTheStatistics) {
  EXPECT_EQ(ThreeDigits(7), "007");
  EXPECT_EQ(ThreeDigits(640), "640");
  EXPECT_EQ(ThreeDigits(1000), "1000");
  EXPECT_EQ(PadNumber(9), "   9");
  EXPECT_EQ(PadNumber(10), "  10");
  EXPECT_EQ(PadNumber(100), " 100");
}

TEST(Text, FixedPointRoundsHalfAwayFromZero) {
  EXPECT_EQ(FixedPoint(0.25, 1), "0.3");
  EXPECT_EQ(FixedPoint(-0.25, 1), "-0.3");
  EXPECT_EQ(FixedPoint(12, 1), "12.0");
  EXPECT_EQ(FixedPoint(0.05, 2), "0.05");
  EXPECT_EQ(FixedPoint(2.5, 0), "3");
}

TEST(Text, TheClockHasTwelveHours) {
  EXPECT_EQ(ClockText(0, 0, 5), "12:00:05 AM");
  EXPECT_EQ(ClockText(11, 59, 59), "11:59:59 AM");
  EXPECT_EQ(ClockText(12, 1, 2), "12:01:02 PM");
  EXPECT_EQ(ClockText(15, 4, 5), "3:04:05 PM");
}

TEST(Text, ValReadsTheLeadingDigits) {
  EXPECT_EQ(Val(" 12x"), 12);
  EXPECT_EQ(Val(""), 0);
  EXPECT_EQ(Val("99999999999999"), 1'000'000'000);
  EXPECT_EQ(WideVal(" 4294967295x"), 4'294'967'295);
  EXPECT_EQ(WideVal("4294967296"), 4'294'967'296);
  EXPECT_EQ(WideVal("99999999999999999999"), 10'000'000'000);
}

struct Typed {
  FilteredBox Box;
  std::string Previous = "12";
};

TEST(FilterNumber, AValidTextBecomesThePrevious) {
  Typed typed{{"123", 3}};
  EXPECT_TRUE(FilterNumber(typed.Box, typed.Previous, 640));
  EXPECT_EQ(typed.Previous, "123");
}

TEST(FilterNumber, AnEmptyTextIsAccepted) {
  Typed typed{{"", 0}};
  EXPECT_TRUE(FilterNumber(typed.Box, typed.Previous, 640));
  EXPECT_EQ(typed.Previous, "");
}

TEST(FilterNumber, AnInvalidTextGivesWayAndTheCaretMovesLeft) {
  for (const char* text : {"1x2", "012", "641", "-1", "99999999999999999999"}) {
    Typed typed{{text, 2}};
    EXPECT_FALSE(FilterNumber(typed.Box, typed.Previous, 640)) << text;
    EXPECT_EQ(typed.Box.Text, "12");
    EXPECT_EQ(typed.Box.Caret, 1);
    EXPECT_EQ(typed.Previous, "12");
  }
}

TEST(FilterNumber, TheCaretAtTheStartStays) {
  Typed typed{{"x12", 0}};
  EXPECT_FALSE(FilterNumber(typed.Box, typed.Previous, 640));
  EXPECT_EQ(typed.Box.Caret, 0);
}

TEST(FilterNumber, OnlyTheZeroFilterTakesALoneZero) {
  Typed typed{{"0", 1}};
  EXPECT_FALSE(FilterNumber(typed.Box, typed.Previous, 99));
  typed = {{"0", 1}};
  EXPECT_TRUE(FilterNumberZero(typed.Box, typed.Previous, 99));
  typed = {{"00", 2}};
  EXPECT_FALSE(FilterNumberZero(typed.Box, typed.Previous, 99));
}

TEST(FilterLength, The201stCharacterIsRefusedAndTheCaretStaysBeforeIt) {
  std::string previous(200, 'a');
  FilteredBox box{previous + "b", 201};
  EXPECT_FALSE(FilterLength(box, previous));
  EXPECT_EQ(box.Text, std::string(200, 'a'));
  EXPECT_EQ(box.Caret, 200);
  FilteredBox accents{"", 0};
  for (int i = 0; i < 200; ++i) accents.Text += "\xC3\xA9";
  EXPECT_TRUE(FilterLength(accents, previous));
}

TEST(Text, ControlCharactersBecomeBlanks) {
  EXPECT_EQ(WithoutControls("one\r\ntwo\tthree\x01\x7F"), "one  two three  ");
  EXPECT_EQ(WithoutControls("\u00C5\u017D \u2660"), "\u00C5\u017D \u2660");
}

}  // namespace
}  // namespace morvane
