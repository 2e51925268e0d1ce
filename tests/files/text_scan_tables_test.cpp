#include "files/scanned.h"
#include "files/text_scan.h"
#include "support/fakes.h"

namespace morvane::files {
namespace {

using ::testing::ElementsAre;

/// The kind that the tables of a PBN file give to each character alone.
std::int16_t PbnKindOf(char c) {
  TextScan scan;
  scan.InitPbnScan();
  scan.ReturnSpaces = true;
  scan.SetCurrentText(std::string(1, c));
  return scan.GetToken().Kind;
}

TEST(TextScanTables, APbnFileHasTheseCharacters) {
  const std::map<std::int16_t, std::string> table = {
      {kTokSpace, " \b"},
      {kTokNumber, "0123456789"},
      {kTokIdentifier, "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz"},
      // The backslash and the apostrophe are both separators.
      {kTokSeparator, "+-*/<>=,.;!?()[]:|@#$^&\\'"},
      {kTokComment, "{}%"},
      {kTokString, "\""}};
  for (int code = 1; code < 128; ++code) {
    const char c = static_cast<char>(code);
    std::int16_t expected = kTokBad;
    for (const auto& [kind, characters] : table) {
      if (characters.find(c) != std::string::npos) expected = kind;
    }
    EXPECT_EQ(PbnKindOf(c), expected) << code;
  }
}

TEST(TextScanTables, TheValuesOfAPbnFileAreZero) {
  for (const char* text : {" ", "a", "5", "+", ",", "{", "}", "%", "\""}) {
    TextScan scan;
    scan.InitPbnScan();
    scan.ReturnSpaces = true;
    scan.SetCurrentText(text);
    EXPECT_EQ(scan.GetToken().Value, 0) << text;
  }
}

TEST(TextScanTables, ThePbnTablesReplaceWhatWasDefinedAndEndAComment) {
  TextScan scan;
  scan.AddKeyword("Board", 5);
  scan.DefineToken("_", kTokIdentifier, 1);
  scan.DefineToken("_", kTokBody, 0);
  scan.DefineToken("<", kTokComStart, 0);
  scan.SetCurrentText("<a");
  EXPECT_EQ(scan.GetToken().Kind, kTokComment);
  scan.InitPbnScan();
  scan.SetCurrentText("_Board_");
  EXPECT_THAT(TokensOf(scan),
              ElementsAre(Token{kTokBad, "_", -1, "_"}, Token{kTokIdentifier, "Board", 0, "Board"},
                          Token{kTokBad, "_", -1, "_"}, kPendingLineEnd));
}

TEST(TextScanTables, ThePbnTablesTurnLineEndsOnAndLeaveTheOtherFlagsAlone) {
  TextScan scan;
  EXPECT_FALSE(scan.ReturnLineEnds);
  scan.ReturnSpaces = true;
  scan.UpshiftIdentifiers = true;
  scan.InitPbnScan();
  EXPECT_TRUE(scan.ReturnLineEnds);
  EXPECT_TRUE(scan.ReturnSpaces);
  EXPECT_TRUE(scan.UpshiftIdentifiers);
}

TEST(TextScanTables, ThePbnTablesGoBackToTheStartOfTheText) {
  TextScan scan;
  scan.InitPbnScan();
  scan.SetCurrentText("a \"b");
  EXPECT_EQ(scan.GetToken().Text, "a");
  EXPECT_EQ(scan.GetToken().Text, "b");
  scan.InitPbnScan();
  EXPECT_EQ(scan.GetToken().Text, "a");
  EXPECT_EQ(scan.GetToken().Text, "b");
}

TEST(TextScanTables, ADefinitionOverwritesTheOneBefore) {
  TextScan scan;
  scan.DefineToken("a", kTokIdentifier, 1);
  scan.DefineToken("a", kTokSeparator, 2);
  scan.SetCurrentText("aa");
  EXPECT_THAT(TokensOf(scan),
              ElementsAre(Token{kTokSeparator, "a", 2, "a"}, Token{kTokSeparator, "a", 2, "a"}));
}

TEST(TextScanTables, SeveralCharactersAreNoTokenAndNoneIsNone) {
  TextScan scan;
  scan.DefineToken("ab", kTokSeparator, 0);
  scan.DefineToken("", kTokSeparator, 0);
  scan.DefineToken("", kTokBody, 0);
  scan.SetCurrentText("ab");
  EXPECT_THAT(TokensOf(scan),
              ElementsAre(Token{kTokBad, "a", -1, "a"}, Token{kTokBad, "b", -1, "b"}));
}

TEST(TextScanTables, SeveralCharactersContinueAnIdentifierAndBeginNone) {
  TextScan scan;
  scan.DefineToken("a", kTokIdentifier, 1);
  scan.DefineToken("12", kTokBody, 0);
  scan.DefineToken("3", kTokBody, 0);
  scan.SetCurrentText("a213a1");
  EXPECT_THAT(TokensOf(scan), ElementsAre(Token{kTokIdentifier, "a213", 1, "a213"},
                                          Token{kTokIdentifier, "a1", 1, "a1"}));
  scan.SetCurrentText("1");
  EXPECT_THAT(TokensOf(scan), ElementsAre(Token{kTokBad, "1", -1, "1"}));
}

TEST(TextScanTables, ACharacterSetIsItsCharactersOneByOne) {
  TextScan scan;
  scan.DefineCharacterSet("a\xC3\xA9", 20, 7);
  scan.SetCurrentText(
      "\xC3\xA9"
      "a");
  EXPECT_THAT(TokensOf(scan),
              ElementsAre(Token{20, "\xC3\xA9", 7, "\xC3\xA9"}, Token{20, "a", 7, "a"}));
}

TEST(TextScanTables, AKindOfTheUsersOwnIsASingleCharacter) {
  TextScan scan;
  for (const std::int16_t kind : {std::int16_t{14}, std::int16_t{300}, std::int16_t{-5}}) {
    scan.DefineToken("x", kind, -1'000'000);
    scan.SetCurrentText("xx");
    const Token x{kind, "x", -1'000'000, "x"};
    EXPECT_THAT(TokensOf(scan), ElementsAre(x, x));
  }
}

TEST(TextScanTables, ClearTokensEmptiesTheTablesAndEndsAComment) {
  TextScan scan;
  scan.InitPbnScan();
  scan.AddKeyword("a", 3);
  scan.SetCurrentText("{");
  EXPECT_EQ(scan.GetToken().Kind, kTokComment);
  scan.ClearTokens();
  scan.SetCurrentText("a1");
  EXPECT_THAT(TokensOf(scan), ElementsAre(Token{kTokBad, "a", -1, "a"},
                                          Token{kTokBad, "1", -1, "1"}, kPendingLineEnd));
  // The keywords stay, and the characters that continue an identifier have gone.
  scan.DefineToken("a", kTokIdentifier, 1);
  scan.SetCurrentText("a1");
  EXPECT_THAT(TokensOf(scan), ElementsAre(Token{kTokKeyword, "a", 3, "a"},
                                          Token{kTokBad, "1", -1, "1"}, kPendingLineEnd));
}

// Keywords.

/// What becomes of `text`, which must be one identifier or keyword.
Token Looked(TextScan& scan, const std::string& text) {
  scan.SetCurrentText(text);
  return scan.GetToken();
}

TEST(TextScanKeywords, AKeywordHasItsValue) {
  TextScan scan;
  scan.InitPbnScan();
  EXPECT_EQ(scan.AddKeyword("Deal", 17), 17);
  EXPECT_EQ(scan.AddKeyword("Auction", -4), -4);
  EXPECT_EQ(Looked(scan, "Deal"), (Token{kTokKeyword, "Deal", 17, "Deal"}));
  EXPECT_EQ(Looked(scan, "Auction"), (Token{kTokKeyword, "Auction", -4, "Auction"}));
  EXPECT_EQ(Looked(scan, "Dealer"), (Token{kTokIdentifier, "Dealer", 0, "Dealer"}));
  EXPECT_EQ(Looked(scan, "deal"), (Token{kTokIdentifier, "deal", 0, "deal"}));
}

TEST(TextScanKeywords, ValueZeroStandsForTheKeywordsOwnIndex) {
  TextScan scan;
  scan.InitPbnScan();
  EXPECT_EQ(scan.AddKeyword("c", 0), 1);
  EXPECT_EQ(scan.AddKeyword("a", 50), 50);
  EXPECT_EQ(scan.AddKeyword("b", 0), 3);
  EXPECT_EQ(Looked(scan, "c").Value, 1);
  EXPECT_EQ(Looked(scan, "a").Value, 50);
  EXPECT_EQ(Looked(scan, "b").Value, 3);
}

TEST(TextScanKeywords, DefinedAgainItTakesTheNewValue) {
  TextScan scan;
  scan.InitPbnScan();
  scan.AddKeyword("a", 10);
  scan.AddKeyword("b", 11);
  EXPECT_EQ(scan.AddKeyword("b", 12), 12);
  EXPECT_EQ(Looked(scan, "b").Value, 12);
  EXPECT_EQ(scan.AddKeyword("b", 0), 2);
  EXPECT_EQ(scan.AddKeyword("c", 0), 3);
}

TEST(TextScanKeywords, IsTrimmedAndAnEmptyOneIsNotStored) {
  TextScan scan;
  scan.InitPbnScan();
  EXPECT_EQ(scan.AddKeyword("", 5), 5);
  EXPECT_EQ(scan.AddKeyword("   ", 0), 0);
  EXPECT_EQ(scan.AddKeyword("  Deal  ", 0), 1);
  EXPECT_EQ(scan.AddKeyword("Deal", 0), 1);
  EXPECT_EQ(Looked(scan, "Deal").Kind, kTokKeyword);
}

TEST(TextScanKeywords, AreFoundInAnyOrderOfDefinition) {
  // Two letters each, defined in a scattered order: 37 has no divisor in common with 26 x 26.
  TextScan scan;
  scan.InitPbnScan();
  const auto word = [](int n) {
    return std::string{static_cast<char>('a' + n / 26), static_cast<char>('a' + n % 26)};
  };
  for (int i = 0; i < 676; i += 2) {
    EXPECT_EQ(scan.AddKeyword(word(i * 37 % 676), i + 1000), i + 1000);
  }
  for (int i = 0; i < 676; ++i) {
    const Token token = Looked(scan, word(i * 37 % 676));
    EXPECT_EQ(token.Kind, i % 2 == 0 ? kTokKeyword : kTokIdentifier) << i;
    EXPECT_EQ(token.Value, i % 2 == 0 ? i + 1000 : 0) << i;
  }
}

TEST(TextScanKeywords, IdentifiersCanBeUpshiftedBeforeTheyAreLookedUp) {
  TextScan scan;
  scan.InitPbnScan();
  scan.UpshiftIdentifiers = true;
  EXPECT_EQ(scan.AddKeyword("Deal", 4), 4);
  EXPECT_EQ(Looked(scan, "dEaL"), (Token{kTokKeyword, "DEAL", 4, "dEaL"}));
  EXPECT_EQ(Looked(scan, "dealer9"), (Token{kTokIdentifier, "DEALER9", 0, "dealer9"}));
  EXPECT_EQ(Looked(scan, "\"deal\""), (Token{kTokString, "deal", 0, "\"deal\""}));
}

TEST(TextScanKeywords, ClearKeywordsForgetsThemAndTheirNumbers) {
  TextScan scan;
  scan.InitPbnScan();
  for (int i = 0; i < 40; ++i) scan.AddKeyword("k" + std::to_string(i), 0);
  scan.ClearKeywords();
  EXPECT_EQ(Looked(scan, "k7"), (Token{kTokIdentifier, "k7", 0, "k7"}));
  EXPECT_EQ(scan.AddKeyword("z", 0), 1);
}

// Names.

TEST(TextScanNames, EachKindHasItsName) {
  const std::vector<std::string> names = {
      "tokNone",    "tokEof",        "tokEol",    "tokBad",       "tokSpace",
      "tokComment", "tokComStart",   "tokComEnd", "tokSeparator", "tokNumber",
      "tokString",  "tokIdentifier", "tokKeyword"};
  for (std::size_t i = 0; i < names.size(); ++i) {
    EXPECT_EQ(TextScan::TokenName(static_cast<std::int16_t>(i)), names[i]);
  }
}

TEST(TextScanNames, AnyOtherIsNamedByItsLastFourDigits) {
  EXPECT_EQ(TextScan::TokenName(13), "Token0013");
  EXPECT_EQ(TextScan::TokenName(42), "Token0042");
  EXPECT_EQ(TextScan::TokenName(1000), "Token1000");
  EXPECT_EQ(TextScan::TokenName(12345), "Token2345");
  EXPECT_EQ(TextScan::TokenName(32767), "Token2767");
  EXPECT_EQ(TextScan::TokenName(30007), "Token0007");
  EXPECT_EQ(TextScan::TokenName(-1), "Token-0001");
  EXPECT_EQ(TextScan::TokenName(-42), "Token-0042");
  EXPECT_EQ(TextScan::TokenName(-32768), "Token-2768");
}

}  // namespace
}  // namespace morvane::files
