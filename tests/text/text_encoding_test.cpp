#include "text/text_encoding.h"

#include <gtest/gtest.h>

#include <array>
#include <random>
#include <string>
#include <vector>

#include "text/text_lines.h"

namespace morvane {
namespace {

std::vector<std::string> LinesOf(std::string_view text) {
  std::vector<std::string> all;
  Lines lines(text);
  for (std::string_view line; lines.Next(line);) all.emplace_back(line);
  return all;
}

TEST(TextEncoding, AsciiStaysAsItIsBothWays) {
  std::string ascii;
  for (int byte = 0; byte < 0x80; ++byte) ascii += static_cast<char>(byte);
  EXPECT_EQ(DecodeText(ascii), ascii);
  EXPECT_EQ(EncodeText(ascii), ascii);
  EXPECT_EQ(DecodeText(""), "");
}

TEST(TextEncoding, BytesThatAreUtf8ThroughoutAreUtf8) {
  EXPECT_EQ(DecodeText("Caf\xC3\xA9 \xE2\x82\xAC \xF0\x9F\x82\xA1"),
            "Caf\xC3\xA9 \xE2\x82\xAC \xF0\x9F\x82\xA1");
}

TEST(TextEncoding, AByteOrderMarkIsSkippedOnceAtTheStart) {
  EXPECT_EQ(DecodeText("\xEF\xBB\xBFx\xEF\xBB\xBF"), "x\xEF\xBB\xBF");
  EXPECT_EQ(DecodeText("\xEF\xBB\xBF"), "");
}

TEST(TextEncoding, AnyOtherBytesAreWindows1252) {
  EXPECT_EQ(DecodeText("Caf\xE9"), "Caf\xC3\xA9");
  EXPECT_EQ(DecodeText("\x80 \x8A \x9F"), "\xE2\x82\xAC \xC5\xA0 \xC5\xB8");  // euro, S caron, Y
  // One bad byte and the whole file is Windows-1252, its good sequences too.
  EXPECT_EQ(DecodeText("\xC3\xA9 \xE9"), "\xC3\x83\xC2\xA9 \xC3\xA9");
}

TEST(TextEncoding, WhatIsNoUtf8IsNotTakenForIt) {
  const std::vector<std::string> broken = {
      "\xC3",              // cut off
      "\xE2\x82",          // cut off
      "\xF0\x9F\x82",      // cut off
      "\xA9",              // no lead
      "\xC3x",             // no continuation
      "\xC0\x80",          // overlong NUL
      "\xC1\xBF",          // overlong
      "\xE0\x9F\xBF",      // overlong
      "\xF0\x8F\xBF\xBF",  // overlong
      "\xED\xA0\x80",      // surrogate
      "\xF4\x90\x80\x80",  // above U+10FFFF
      "\xF5\x80\x80\x80",
      "\xFF",
  };
  for (const std::string& bytes : broken) {
    const std::string text = DecodeText(bytes);
    EXPECT_NE(text, bytes);
    EXPECT_EQ(EncodeText(text), bytes);
  }
}

TEST(TextEncoding, EveryByteSurvivesTheWayThroughMemory) {
  std::string bytes = "\xFF";  // no UTF-8
  for (int byte = 0; byte < 0x100; ++byte) bytes += static_cast<char>(byte);
  EXPECT_EQ(EncodeText(DecodeText(bytes)), bytes);
  EXPECT_EQ(DecodeText("\xFF\x81"), "\xC3\xBF\xC2\x81");  // an undefined byte stands for itself
}

TEST(TextEncoding, TextIsWrittenAsWindows1252WhereEveryCharacterHasAPlace) {
  EXPECT_EQ(EncodeText("Caf\xC3\xA9 \xE2\x82\xAC"), "Caf\xE9 \x80");
}

TEST(TextEncoding, OneCharacterWithoutAPlaceMakesItUtf8) {
  const std::string text =
      "Caf\xC3\xA9 \xC5\x81\xC3\xB3"
      "d\xC5\xBA";
  EXPECT_EQ(EncodeText(text), text);
  // U+0080 is no character of Windows-1252, though its byte is.
  EXPECT_EQ(EncodeText("\xC2\x80"), "\xC2\x80");
}

TEST(TextEncoding, AccentsThatWouldReadBackAsUtf8AreWrittenAsUtf8) {
  // As Windows-1252 this would be the bytes C3 A9, which is e acute in UTF-8.
  const std::string text = "\xC3\x83\xC2\xA9";
  EXPECT_EQ(EncodeText(text), text);
  EXPECT_EQ(DecodeText(EncodeText(text)), text);
}

TEST(TextEncoding, ATextThatBeginsWithAMarkKeepsIt) {
  const std::string text = "\xEF\xBB\xBFx";
  EXPECT_EQ(DecodeText(EncodeText(text)), text);
}

TEST(TextEncoding, NoTextIsChangedByTheWayThroughAFile) {
  const std::array<std::string, 12> characters{
      "a",        " ",        "\xC3\xA9",     "\xC3\x83",         "\xC2\xA9",     "\xE2\x82\xAC",
      "\xC2\x81", "\xC2\x80", "\xEF\xBB\xBF", "\xF0\x9F\x82\xA1", "\xE2\x80\xB0", "\xC3\xAF"};
  std::mt19937 random(1252);
  for (int i = 0; i < 20000; ++i) {
    std::string text;
    for (auto length = random() % 6; length > 0; --length) text += characters[random() % 12];
    ASSERT_EQ(DecodeText(EncodeText(text)), text);
  }
}

TEST(AnsiText, UpperCaseKnowsEveryLetterOfWindows1252) {
  EXPECT_EQ(UpperCaseAnsi("az\xE0\xFE\x9A\x9C\x9E"), "AZ\xC0\xDE\x8A\x8C\x8E");
  EXPECT_EQ(UpperCaseAnsi("\xFF"), "\x9F") << "its capital stands far from it";
  EXPECT_EQ(UpperCaseAnsi("\xF7\xDF\x7B\x9B\x9D"), "\xF7\xDF\x7B\x9B\x9D")
      << "no letters with capitals";
}

TEST(TextEncoding, ACharacterIsTakenWhole) {
  EXPECT_EQ(CharacterAt("a\xE2\x82\xACz", 0), "a");
  EXPECT_EQ(CharacterAt("a\xE2\x82\xACz", 1), "\xE2\x82\xAC");
  EXPECT_EQ(CharacterAt("a", 1), "");
}

TEST(TextEncoding, CharactersAreCountedNotBytes) {
  EXPECT_EQ(CharacterCount("a\xC3\xA9z"), 3U);
  EXPECT_EQ(CharacterCount("\xE2\x82\xAC\xF0\x9F\x82\xA1"), 2U);
  EXPECT_EQ(CharacterCount(""), 0U);
}

TEST(TextEncoding, AByteThatIsNoUtf8IsOneCharacterHoweverItIsLookedAt) {
  const std::string text = "a\xA9\xE2\x82z";  // a lone continuation, and a character cut off
  EXPECT_EQ(CharacterCount(text), 5U);
  EXPECT_EQ(CharacterAt(text, 1), "\xA9");
  EXPECT_EQ(FirstCharacters(text, 3), "a\xA9\xE2");
}

TEST(TextEncoding, TheFirstCharactersAreWhole) {
  const std::string text = "a\xE2\x82\xACz";
  EXPECT_EQ(FirstCharacters(text, 0), "");
  EXPECT_EQ(FirstCharacters(text, 2), "a\xE2\x82\xAC");
  EXPECT_EQ(FirstCharacters(text, 3), text);
  EXPECT_EQ(FirstCharacters(text, 4), text);
  EXPECT_EQ(FirstCharacters("", 1), "");
}

TEST(Lines, EndWithCrLfOrLfAlone) {
  using ::testing::ElementsAre;
  EXPECT_THAT(LinesOf("a\r\nb\nc"), ElementsAre("a", "b", "c"));
  EXPECT_THAT(LinesOf("a\r\n"), ElementsAre("a"));
  EXPECT_THAT(LinesOf("\n\r\n"), ElementsAre("", ""));
  EXPECT_TRUE(LinesOf("").empty());
}

TEST(Lines, ALoneCrEndsNoLine) {
  using ::testing::ElementsAre;
  EXPECT_THAT(LinesOf("a\rb\r\r\nc\r"), ElementsAre("a\rb\r", "c\r"));
}

TEST(Lines, TheRestStandsBehindTheEndOfTheLastOne) {
  Lines lines("a\r\n\r\nb");
  std::string_view line;
  EXPECT_EQ(lines.Rest(), "a\r\n\r\nb");
  EXPECT_TRUE(lines.Next(line));
  EXPECT_EQ(lines.Rest(), "\r\nb");
  EXPECT_TRUE(lines.Next(line));
  EXPECT_EQ(lines.Rest(), "b");
  EXPECT_TRUE(lines.Next(line));
  EXPECT_EQ(lines.Rest(), "");
}

TEST(Lines, NulAndTheOldEndOfFileMarkAreOrdinaryBytes) {
  using ::testing::ElementsAre;
  const std::string text("a\0b\x1A\nc", 6);
  EXPECT_THAT(LinesOf(text), ElementsAre(std::string("a\0b\x1A", 4), "c"));
}

using namespace std::string_literals;

TEST(AnyTextEncoding, AByteOrderMarkOfUtf16SaysWhichWayRound) {
  EXPECT_EQ(DecodeAnyText("\xFF\xFE\x41\x00\xE9\x00\xAC\x20"s), "A\xC3\xA9\xE2\x82\xAC");
  EXPECT_EQ(DecodeAnyText("\xFE\xFF\x00\x41\x00\xE9\x20\xAC"s), "A\xC3\xA9\xE2\x82\xAC");
  EXPECT_EQ(DecodeAnyText("\xFF\xFE"s), "");
}

TEST(AnyTextEncoding, TwoUnitsOfUtf16MakeOneCharacterAboveFFFF) {
  // U+1F0A1: the surrogates D83C DCA1.
  EXPECT_EQ(DecodeAnyText("\xFF\xFE\x3C\xD8\xA1\xDC"s), "\xF0\x9F\x82\xA1");
  EXPECT_EQ(DecodeAnyText("\xFE\xFF\xD8\x3C\xDC\xA1"s), "\xF0\x9F\x82\xA1");
  EXPECT_EQ(DecodeAnyText("\xFE\xFF\xDB\xFF\xDF\xFF"s), "\xF4\x8F\xBF\xBF");
}

TEST(AnyTextEncoding, HalvesOfUtf16AreReplaced) {
  const std::string replaced = "\xEF\xBF\xBD";
  EXPECT_EQ(DecodeAnyText("\xFE\xFF\xD8\x3C\x00\x41"s), replaced + "A");
  EXPECT_EQ(DecodeAnyText("\xFE\xFF\xDC\xA1\x00\x41"s), replaced + "A");
  EXPECT_EQ(DecodeAnyText("\xFE\xFF\xD8\x3C"s), replaced);
  EXPECT_EQ(DecodeAnyText("\xFE\xFF\x00\x41\x00"s), "A" + replaced);
  EXPECT_EQ(DecodeAnyText("\xFE\xFF\xD8\x3C\xD8"s), replaced + replaced);
}

TEST(AnyTextEncoding, WithoutThatMarkItIsAsEverywhere) {
  EXPECT_EQ(DecodeAnyText("\xEF\xBB\xBFx"), "x");
  EXPECT_EQ(DecodeAnyText("Caf\xC3\xA9"), "Caf\xC3\xA9");
  EXPECT_EQ(DecodeAnyText("Caf\xE9"), "Caf\xC3\xA9");
  EXPECT_EQ(DecodeAnyText("\xFF\x41"),
            "\xC3\xBF"
            "A");
  EXPECT_EQ(DecodeAnyText(""), "");
}

}  // namespace
}  // namespace morvane
