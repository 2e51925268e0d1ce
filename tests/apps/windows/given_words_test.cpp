#include "given_words.h"

#include <gmock/gmock.h>

#include "windows/typed_line.h"

namespace morvane {
namespace {

TEST(GivenWords, WhatIsTypedStandsBehindTheNameAsItIs) {
  const GivenWords given = GivenWordsOfLine(LR"("C:\Our Club\morvane.exe"   "d:\my set.pbn"  -x )");
  EXPECT_EQ(given.Typed, R"("d:\my set.pbn"  -x )");
  EXPECT_EQ(given.Words, (QStringList{R"(C:\Our Club\morvane.exe)", R"(d:\my set.pbn)", "-x"}));
  EXPECT_TRUE(given.AreText);
}

TEST(GivenWords, ANameWithoutQuotesEndsAtABlank) {
  const GivenWords given = GivenWordsOfLine(L"morvane-cli\tshow *.pbn");
  EXPECT_EQ(given.Typed, "show *.pbn");
  EXPECT_EQ(given.Words, (QStringList{"morvane-cli", "show", "*.pbn"}));
}

TEST(GivenWords, OfANameAloneNothingIsTyped) {
  for (const wchar_t* line : {L"morvane", L"\"morvane\"", L"morvane  ", L"\"morvane\" "}) {
    const GivenWords given = GivenWordsOfLine(line);
    EXPECT_EQ(given.Typed, "");
    EXPECT_EQ(given.Words, QStringList{"morvane"});
  }
}

TEST(GivenWords, KeepCharactersThatNoCodePageHasTogether) {
  const GivenWords given = GivenWordsOfLine(L"morvane \x0141\x03A9.pbn");
  EXPECT_EQ(given.Words.value(1).toStdString(), "\xC5\x81\xCE\xA9.pbn");
  EXPECT_EQ(given.Typed, "\xC5\x81\xCE\xA9.pbn");
  EXPECT_TRUE(given.AreText);
}

TEST(GivenWords, HalfACharacterIsNoText) {
  const std::wstring half = {L'm', L' ', wchar_t(0xD83D)};
  EXPECT_FALSE(GivenWordsOfLine(half).AreText);
  EXPECT_TRUE(GivenWordsOfLine(half + wchar_t(0xDE00)).AreText);
}

}  // namespace
}  // namespace morvane
