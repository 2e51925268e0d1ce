#include "files/text_scan.h"

#include "files/scanned.h"
#include "support/fakes.h"

namespace morvane::files {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

Token Plain(std::int16_t kind, const char* text) { return {kind, text, 0, text}; }

TEST(TextScan, AnEmptyTextGivesALineEndAndThenTheEnd) {
  TextScan scan;
  scan.InitPbnScan();
  scan.SetCurrentText("");
  EXPECT_EQ(scan.GetToken(), kPendingLineEnd);
  EXPECT_EQ(scan.GetToken(), (Token{kTokEof, "", -1, ""}));
}

TEST(TextScan, WithoutLineEndsAnEmptyTextGivesTheEndAlone) {
  TextScan scan;
  scan.SetCurrentText("");
  EXPECT_EQ(scan.GetToken(), (Token{kTokEof, "", -1, ""}));
}

TEST(TextScan, TheEndIsGivenAgainAndAgain) {
  TextScan scan;
  for (int i = 0; i < 3; ++i) EXPECT_EQ(scan.GetToken().Kind, kTokEof);
}

TEST(TextScan, WithoutTablesEveryCharacterIsBad) {
  TextScan scan;
  scan.SetCurrentText("a \"");
  EXPECT_THAT(TokensOf(scan),
              ElementsAre(Token{kTokBad, "a", -1, "a"}, Token{kTokBad, " ", -1, " "},
                          Token{kTokBad, "\"", -1, "\""}));
}

TEST(TextScan, CutsALineOfAPbnFile) {
  EXPECT_THAT(PbnTokensOf("[Board \"12\"]"),
              ElementsAre(Plain(kTokSeparator, "["), Plain(kTokIdentifier, "Board"),
                          Token{kTokString, "12", 0, "\"12\""}, Plain(kTokSeparator, "]"),
                          kPendingLineEnd));
}

TEST(TextScan, ANumberGoesOnOverDigitsAndPoints) {
  EXPECT_THAT(PbnTokensOf("12.3.4x5"), ElementsAre(Plain(kTokNumber, "12.3.4"),
                                                   Plain(kTokIdentifier, "x5"), kPendingLineEnd));
}

TEST(TextScan, APointDoesNotBeginANumberNorASignBelongToIt) {
  EXPECT_THAT(PbnTokensOf("-.5"), ElementsAre(Plain(kTokSeparator, "-"), Plain(kTokSeparator, "."),
                                              Plain(kTokNumber, "5"), kPendingLineEnd));
}

TEST(TextScan, AnIdentifierGoesOnOverLettersAndDigits) {
  EXPECT_THAT(PbnTokensOf("aZ09+b"),
              ElementsAre(Plain(kTokIdentifier, "aZ09"), Plain(kTokSeparator, "+"),
                          Plain(kTokIdentifier, "b"), kPendingLineEnd));
}

TEST(TextScan, SpacesAreSkippedAndCanBeReturnedInRuns) {
  EXPECT_THAT(PbnTokensOf(" \b "), ElementsAre(Token{kTokEol, "", 0, ""}));
  TextScan scan;
  scan.InitPbnScan();
  scan.ReturnSpaces = true;
  scan.SetCurrentText("a \b b");
  EXPECT_THAT(TokensOf(scan), ElementsAre(Plain(kTokIdentifier, "a"), Plain(kTokSpace, " \b "),
                                          Plain(kTokIdentifier, "b"), kPendingLineEnd));
}

TEST(TextScan, TheRawTextBeginsBehindTheSpacesSkipped) {
  EXPECT_EQ(PbnTokensOf("   abc  ")[0], Plain(kTokIdentifier, "abc"));
}

TEST(TextScan, ACharacterWithoutAClassHasTheValueOfTheSpacesBeforeIt) {
  EXPECT_THAT(PbnTokensOf("_ _"), ElementsAre(Token{kTokBad, "_", -1, "_"},
                                              Token{kTokBad, "_", 0, "_"}, kPendingLineEnd));
}

TEST(TextScan, TabsAndLineBreaksHaveNoClassInAPbnFile) {
  EXPECT_THAT(PbnTokensOf("\t\r\n"),
              ElementsAre(Token{kTokBad, "\t", -1, "\t"}, Token{kTokBad, "\r", -1, "\r"},
                          Token{kTokBad, "\n", -1, "\n"}, kPendingLineEnd));
}

TEST(TextScan, ACharacterOfSeveralBytesIsOneToken) {
  EXPECT_THAT(PbnTokensOf("\xC3\xA9x"), ElementsAre(Token{kTokBad, "\xC3\xA9", -1, "\xC3\xA9"},
                                                    Plain(kTokIdentifier, "x"), kPendingLineEnd));
  TextScan scan;
  scan.DefineToken("\xC3\xA9", kTokIdentifier, 4);
  scan.DefineToken("\xC3\xA8", kTokBody, 0);
  scan.SetCurrentText("\xC3\xA9\xC3\xA8\xC3\xA9");
  EXPECT_THAT(TokensOf(scan),
              ElementsAre(Token{kTokIdentifier, "\xC3\xA9\xC3\xA8", 4, "\xC3\xA9\xC3\xA8"},
                          Token{kTokIdentifier, "\xC3\xA9", 4, "\xC3\xA9"}));
}

TEST(TextScan, BytesThatAreNoTextAreBadOneByOne) {
  EXPECT_THAT(PbnTokensOf(std::string("\xC3\x00\xFF", 3)),
              ElementsAre(Token{kTokBad, "\xC3", -1, "\xC3"},
                          Token{kTokBad, std::string(1, '\0'), -1, std::string(1, '\0')},
                          Token{kTokBad, "\xFF", -1, "\xFF"}, kPendingLineEnd));
}

// Strings.

TEST(TextScanString, StandsBetweenQuotes) {
  EXPECT_THAT(PbnTokensOf("\"a b\"\"\"x"),
              ElementsAre(Token{kTokString, "a b", 0, "\"a b\""}, Token{kTokString, "", 0, "\"\""},
                          Plain(kTokIdentifier, "x"), kPendingLineEnd));
}

TEST(TextScanString, ADoubledQuoteEndsItAndBeginsTheNext) {
  EXPECT_THAT(PbnTokensOf(R"("a""b")"),
              ElementsAre(Token{kTokString, "a", 0, "\"a\""}, Token{kTokString, "b", 0, "\"b\""},
                          kPendingLineEnd));
}

TEST(TextScanString, ASlashInFrontKeepsAQuoteFromEndingIt) {
  EXPECT_THAT(PbnTokensOf(R"("a/"b" c)"), ElementsAre(Token{kTokString, "a/\"b", 0, R"("a/"b")"},
                                                      Plain(kTokIdentifier, "c"), kPendingLineEnd));
}

TEST(TextScanString, ASlashBeforeTheLastCharacterOfTheTextKeepsNothing) {
  EXPECT_THAT(PbnTokensOf(R"("a/")"),
              ElementsAre(Token{kTokString, "a/", 0, R"("a/")"}, kPendingLineEnd));
}

TEST(TextScanString, ASlashKeepsTheOnlyQuoteSoThatTheLineEndsIt) {
  EXPECT_THAT(PbnTokensOf(R"("a/" b)"),
              ElementsAre(Token{kTokString, "a/\" b", 0, R"("a/" b)"}, kPendingLineEnd));
}

TEST(TextScanString, AMissingQuoteIsNoErrorAndTheLineEndsIt) {
  EXPECT_THAT(PbnTokensOf("x \"a b"),
              ElementsAre(Plain(kTokIdentifier, "x"), Token{kTokString, "a b", 0, "\"a b"},
                          kPendingLineEnd));
  EXPECT_THAT(PbnTokensOf("\"a\nb"),
              ElementsAre(Token{kTokString, "a", 0, "\"a"}, Token{kTokBad, "\n", -1, "\n"},
                          Plain(kTokIdentifier, "b"), kPendingLineEnd));
  EXPECT_THAT(PbnTokensOf("\""), ElementsAre(Token{kTokString, "", 0, "\""}, kPendingLineEnd));
}

TEST(TextScanString, GoesOnOverLineBreaksToItsQuote) {
  EXPECT_THAT(PbnTokensOf("\"a\r\nb\""),
              ElementsAre(Token{kTokString, "a\r\nb", 0, "\"a\r\nb\""}, kPendingLineEnd));
}

TEST(TextScanString, WithoutAQuoteTheLineEndsItThoughAKeptOneStandsBehind) {
  EXPECT_THAT(
      PbnTokensOf("\"a\n/\" b"),
      ElementsAre(Token{kTokString, "a", 0, "\"a"}, Token{kTokBad, "\n", -1, "\n"},
                  Plain(kTokSeparator, "/"), Token{kTokString, " b", 0, "\" b"}, kPendingLineEnd));
}

TEST(TextScanString, OnALaterLineItNeverGoesBack) {
  // No character is a line end here, so the first one found stays behind.
  EXPECT_THAT(PbnTokensOf("a\n\"b\nc"),
              ElementsAre(Plain(kTokIdentifier, "a"), Token{kTokBad, "\n", -1, "\n"},
                          Token{kTokString, "b", 0, "\"b"}, Token{kTokBad, "\n", -1, "\n"},
                          Plain(kTokIdentifier, "c"), kPendingLineEnd));
}

TEST(TextScanString, ADoubledQuoteInsideBecomesOne) {
  // Inside is only where a slash keeps both, and only a slash that is the quote can do that.
  TextScan scan;
  scan.DefineToken("/", kTokString, 7);
  scan.SetCurrentText("///x");
  EXPECT_THAT(TokensOf(scan), ElementsAre(Token{kTokString, "/x", 7, "///x"}));
}

TEST(TextScanString, AnyCharacterCanBeTheQuote) {
  TextScan scan;
  scan.InitPbnScan();
  scan.DefineToken("'", kTokString, 3);
  scan.SetCurrentText("'a\"b'\"c'\"");
  EXPECT_THAT(TokensOf(scan), ElementsAre(Token{kTokString, "a\"b", 3, "'a\"b'"},
                                          Token{kTokString, "c'", 0, "\"c'\""}, kPendingLineEnd));
}

TEST(TextScanString, AQuoteThatNothingClosesIsNotSearchedForAgainAndAgain) {
  std::string text;
  for (int i = 0; i < 200'000; ++i) text += "/\"\n";
  // Separator, string up to the line break, line break. Searching anew would take minutes.
  EXPECT_EQ(PbnTokensOf(text + " ").size(), 600'001U);
}

TEST(TextScanString, AQuoteThatNothingClosedIsSearchedForInTheNextText) {
  TextScan scan;
  scan.InitPbnScan();
  scan.SetCurrentText("\"a");
  EXPECT_EQ(scan.GetToken(), (Token{kTokString, "a", 0, "\"a"}));
  scan.SetCurrentText("\"a\"b");
  EXPECT_EQ(scan.GetToken(), (Token{kTokString, "a", 0, "\"a\""}));
}

// Comments.

TEST(TextScanComment, APercentSignTakesTheRestOfTheLine) {
  EXPECT_THAT(
      PbnTokensOf("a % b \"c\" }"),
      ElementsAre(Plain(kTokIdentifier, "a"), Plain(kTokComment, "% b \"c\" }"), kPendingLineEnd));
  EXPECT_THAT(PbnTokensOf("%a\fb"),
              ElementsAre(Plain(kTokComment, "%a"), Token{kTokBad, "\f", -1, "\f"},
                          Plain(kTokIdentifier, "b"), kPendingLineEnd));
}

TEST(TextScanComment, OnALaterLineAPercentSignNeverGoesBack) {
  EXPECT_THAT(PbnTokensOf("a\n%b\nc"),
              ElementsAre(Plain(kTokIdentifier, "a"), Token{kTokBad, "\n", -1, "\n"},
                          Plain(kTokComment, "%b"), Token{kTokBad, "\n", -1, "\n"},
                          Plain(kTokIdentifier, "c"), kPendingLineEnd));
}

TEST(TextScanComment, BracesTakeWhatStandsBetweenThem) {
  EXPECT_THAT(PbnTokensOf("a{b \"{% c}d"),
              ElementsAre(Plain(kTokIdentifier, "a"), Plain(kTokComment, "{b \"{% c}"),
                          Plain(kTokIdentifier, "d"), kPendingLineEnd));
}

TEST(TextScanComment, ABraceThatClosesNothingIsACommentByItself) {
  EXPECT_THAT(PbnTokensOf("}a"),
              ElementsAre(Plain(kTokComment, "}"), Plain(kTokIdentifier, "a"), kPendingLineEnd));
}

TEST(TextScanComment, StaysOpenOverTheNextTexts) {
  TextScan scan;
  scan.InitPbnScan();
  scan.SetCurrentText("{a");
  EXPECT_THAT(TokensOf(scan), ElementsAre(Plain(kTokComment, "{a"), kPendingLineEnd));
  scan.SetCurrentText("[b \"c\"]");
  EXPECT_THAT(TokensOf(scan), ElementsAre(Plain(kTokComment, "[b \"c\"]"), kPendingLineEnd));
  scan.SetCurrentText("d}e");
  EXPECT_THAT(TokensOf(scan),
              ElementsAre(Plain(kTokComment, "d}"), Plain(kTokIdentifier, "e"), kPendingLineEnd));
}

TEST(TextScanComment, TheFirstCharacterOfATextClosesIt) {
  TextScan scan;
  scan.InitPbnScan();
  scan.SetCurrentText("{");
  EXPECT_THAT(TokensOf(scan), ElementsAre(Plain(kTokComment, "{"), kPendingLineEnd));
  scan.SetCurrentText("}e");
  EXPECT_THAT(TokensOf(scan),
              ElementsAre(Plain(kTokComment, "}"), Plain(kTokIdentifier, "e"), kPendingLineEnd));
}

TEST(TextScanComment, HasTheValueOfItsFirstCharacterAndZeroWhereItGoesOn) {
  TextScan scan;
  scan.DefineToken("<", kTokComStart, 6);
  scan.DefineToken(">", kTokComEnd, 7);
  scan.DefineToken("#", kTokComment, 5);
  scan.SetCurrentText("><a");
  EXPECT_THAT(TokensOf(scan),
              ElementsAre(Token{kTokComment, ">", 7, ">"}, Token{kTokComment, "<a", 6, "<a"}));
  scan.SetCurrentText("b>#c");
  EXPECT_THAT(TokensOf(scan),
              ElementsAre(Token{kTokComment, "b>", 0, "b>"}, Token{kTokComment, "#c", 5, "#c"}));
}

// Line ends inside a text.

TEST(TextScanLineEnd, ACharacterOfThatKindIsALineEndAndMovesTheLineOn) {
  TextScan scan;
  scan.InitPbnScan();
  scan.DefineToken("\n", kTokEol, 9);
  scan.SetCurrentText("a%b\nc%d\n\n%e");
  const Token lineEnd{kTokEol, "\n", 9, "\n"};
  EXPECT_THAT(TokensOf(scan),
              ElementsAre(Plain(kTokIdentifier, "a"), Plain(kTokComment, "%b"), lineEnd,
                          Plain(kTokIdentifier, "c"), Plain(kTokComment, "%d"), lineEnd, lineEnd,
                          Plain(kTokComment, "%e"), kPendingLineEnd));
}

TEST(TextScanLineEnd, TheNextOneOfItsOwnKindEndsTheLineToo) {
  TextScan scan;
  scan.InitPbnScan();
  scan.DefineToken(";", kTokEol, 0);
  // The line of the text itself ends at the line break only.
  scan.SetCurrentText("%a;\n;%b;%c\n;");
  EXPECT_THAT(
      TokensOf(scan),
      ElementsAre(Plain(kTokComment, "%a;"), Token{kTokBad, "\n", -1, "\n"}, Plain(kTokEol, ";"),
                  Plain(kTokComment, "%b"), Plain(kTokEol, ";"), Plain(kTokComment, "%c"),
                  Token{kTokBad, "\n", -1, "\n"}, Plain(kTokEol, ";"), kPendingLineEnd));
}

TEST(TextScanLineEnd, IsReturnedInsideATextWhateverTheFlagSays) {
  TextScan scan;
  scan.DefineToken(";", kTokEol, 1);
  scan.SetCurrentText(";");
  EXPECT_THAT(TokensOf(scan), ElementsAre(Token{kTokEol, ";", 1, ";"}));
}

TEST(TextScan, RawTextsTogetherAreTheSource) {
  const std::string text =
      "% PBN 2.1\r\n[Event \"Club /\"A/\" night\"]\t{c\r\n}[Deal \"N:AK.Q\"] 1.5 _ \xC3\xA9 "
      "\"x\r\ny";
  TextScan scan;
  scan.InitPbnScan();
  scan.ReturnSpaces = true;
  scan.SetCurrentText(text);
  std::string all;
  for (const Token& token : TokensOf(scan)) all += token.Raw;
  EXPECT_EQ(all, text);
}

TEST(TextScan, ANewTextHasItsOwnLineEnd) {
  TextScan scan;
  scan.InitPbnScan();
  scan.SetCurrentText("a longer line");
  EXPECT_EQ(scan.GetToken().Text, "a");
  scan.SetCurrentText("%b\nc");
  EXPECT_THAT(TokensOf(scan), ElementsAre(Plain(kTokComment, "%b"), Token{kTokBad, "\n", -1, "\n"},
                                          Plain(kTokIdentifier, "c"), kPendingLineEnd));
}

TEST(TextScan, AfterTheEndItTakesANewTextWithTheSameTables) {
  TextScan scan;
  scan.InitPbnScan();
  scan.SetCurrentText("a");
  EXPECT_EQ(TokensOf(scan).size(), 2U);
  EXPECT_THAT(TokensOf(scan), IsEmpty());
  scan.SetCurrentText("b");
  EXPECT_THAT(TokensOf(scan), ElementsAre(Plain(kTokIdentifier, "b"), kPendingLineEnd));
}

}  // namespace
}  // namespace morvane::files
