#include "files/pbn_import_scanner.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace morvane::files {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Flaw = PbnFlaw::Kind;

std::vector<PbnTagPair> Tags(std::string_view text) {
  const std::string plain = PlainText(std::string(text));
  PbnImportScanner scanner(plain, "SCORES");
  std::vector<PbnTagPair> tags;
  for (PbnTagPair tag; scanner.Next(tag);) tags.push_back(tag);
  return tags;
}

/// "name=value" of each tag.
std::vector<std::string> Pairs(std::string_view text) {
  std::vector<std::string> pairs;
  for (const PbnTagPair& tag : Tags(text)) pairs.push_back(tag.Name + "=" + tag.Value);
  return pairs;
}

std::vector<PbnFlaw> Flaws(std::string_view text) {
  std::vector<PbnFlaw> flaws;
  for (const PbnTagPair& tag : Tags(text)) {
    flaws.insert(flaws.end(), tag.Flaws.begin(), tag.Flaws.end());
  }
  return flaws;
}

TEST(PlainText, EveryKindOfLineEndIsOneLineFeed) {
  EXPECT_EQ(PlainText("a\r\nb\nc\rd"), "a\nb\nc\nd");
  EXPECT_EQ(PlainText("a\r\n\r\nb\r\rc\n\nd"), "a\n\nb\n\nc\n\nd");
}

TEST(PlainText, ACarriageReturnTooManyIsNoLineOfItsOwn) {
  EXPECT_EQ(PlainText("a\r\r\nb\r\r\n\r\r\nc"), "a\nb\n\nc");
}

TEST(PlainText, ATextMayEndInTheMiddleOfOne) {
  EXPECT_EQ(PlainText("a\r"), "a\n");
  EXPECT_EQ(PlainText("a\r\r"), "a\n\n");
  EXPECT_EQ(PlainText(""), "");
}

TEST(PlainText, EveryOtherControlCharacterIsABlank) {
  EXPECT_EQ(PlainText(std::string("a\tb\v\fc\x01\x1F\0d e", 12)), "a b  c   d e");
  EXPECT_EQ(PlainText("\x7F\xC2\x81"), "\x7F\xC2\x81");
}

TEST(PbnScan, SeveralTagsOnALineAndNoLineEndAtTheEnd) {
  EXPECT_THAT(Pairs("[Board \"1\"][Dealer \"N\"] [Deal \"N:A... - - -\"]"),
              ElementsAre("Board=1", "Dealer=N", "Deal=N:A... - - -"));
}

TEST(PbnScan, ATagKnowsTheLineOfItsBracket) {
  const auto tags = Tags("\n\n[\nEvent\n\"x\"\n]\n[Site \"y\"]");
  ASSERT_EQ(tags.size(), 2U);
  EXPECT_EQ(tags[0].Line, 3);
  EXPECT_EQ(tags[1].Line, 7);
}

TEST(PbnScan, BlanksLineEndsAndCommentsMayStandBetweenItsParts) {
  EXPECT_THAT(Pairs("[ {a} Event{b\nc}\t\"x\" ; [Site \"no\"]\n%[Site \"no\"]\n ]"),
              ElementsAre("Event=x"));
  EXPECT_THAT(Flaws("[ {a} Event{b\nc}\t\"x\" ; [Site \"no\"]\n%[Site \"no\"]\n ]"), IsEmpty());
}

TEST(PbnScan, AValueMayGoOnInTheNextLine) {
  EXPECT_THAT(Pairs("[Deal \"N:A... -\n- -\"]"), ElementsAre("Deal=N:A... - - -"));
}

TEST(PbnScan, CommentsAreSkippedOverLines) {
  EXPECT_THAT(Pairs("{one\n[Board 1\n}[Board \"2\"]; [Board \"3\"]\n[Board \"4\"]"),
              ElementsAre("Board=2", "Board=4"));
}

TEST(PbnScan, BracesDoNotNest) {
  EXPECT_THAT(Pairs("{a {b} [Board \"1\"]"), ElementsAre("Board=1"));
}

TEST(PbnScan, ABraceBehindASemicolonOpensNothing) {
  EXPECT_THAT(Pairs("; {\n[Board \"1\"] {}"), ElementsAre("Board=1"));
}

TEST(PbnScan, ASemicolonInBracesEndsNoComment) {
  EXPECT_THAT(Pairs("{ ; } [Board \"1\"]"), ElementsAre("Board=1"));
}

TEST(PbnScan, APercentSignEscapesItsLineInTheFirstColumnOnly) {
  EXPECT_THAT(Pairs("%[Board \"1\"]\n %[Board \"2\"]\n"), ElementsAre("Board=2"));
}

TEST(PbnScan, SignsOfCommentsInAValueAreText) {
  EXPECT_THAT(Pairs("[Event \"{a} ; b % c\"][Site \"x\"]"),
              ElementsAre("Event={a} ; b % c", "Site=x"));
}

TEST(PbnScan, EscapedQuotesAndBackslashes) {
  EXPECT_THAT(Pairs(R"([Event "a \"b\" c \\ d \\"])"), ElementsAre(R"(Event=a "b" c \ d \)"));
}

TEST(PbnScan, ABackslashInFrontOfAnotherCharacterIsText) {
  EXPECT_THAT(Pairs(R"([A "Result\2R;C:\x"])"), ElementsAre(R"(A=Result\2R;C:\x)"));
}

TEST(PbnScan, BracketsInAValueAreText) {
  EXPECT_THAT(Pairs("[Event \"a [b] ] [c\"] [Site \"[Board \"]"),
              ElementsAre("Event=a [b] ] [c", "Site=[Board "));
}

TEST(PbnScan, BracketsThatNoNameFollowsAreText) {
  EXPECT_THAT(Pairs("[1] [ ] [\"x\"] [_a \"b\"] [[Board \"1\"]] [\n3]"), ElementsAre("Board=1"));
}

TEST(PbnScan, ANameHasLettersDigitsAndUnderscores) {
  EXPECT_THAT(Pairs("[A_b2\"x\"]"), ElementsAre("A_b2=x"));
}

TEST(PbnScan, TheSectionOfATagGoesUpToTheNextTag) {
  const auto tags = Tags("[Scores \"x\"]\nN S 1\n{c} E ; d\n%e\nW\"[a\"% []\n[scores \"y\"] tail");
  ASSERT_EQ(tags.size(), 2U);
  EXPECT_EQ(tags[0].Section, "\nN S 1\n E \n\nW\"[a\"% []\n");
  EXPECT_EQ(tags[1].Section, " tail");
}

TEST(PbnScan, OnlyTheSectionsThatAreAskedForAreKept) {
  const auto tags = Tags("before [Scores \"x\"] a [Score \"y\"] b");
  ASSERT_EQ(tags.size(), 2U);
  EXPECT_EQ(tags[0].Section, " a ");
  EXPECT_EQ(tags[1].Section, "");
}

TEST(PbnScan, ABracketWithinQuotesOfASectionIsText) {
  EXPECT_THAT(Pairs("[A \"x\"]\n1 \"Ann [Captain]\" [B \"y\"]"), ElementsAre("A=x", "B=y"));
}

TEST(PbnScan, AQuoteInASectionThatIsNotClosedOnItsLineIsText) {
  EXPECT_THAT(Pairs("[A \"x\"]\n5\" and\n[B \"y\"]"), ElementsAre("A=x", "B=y"));
}

TEST(PbnScan, ALongSectionIsCut) {
  const std::string line = std::string(PbnTagPair::kLongestSection - 5, '.') + "\n";
  const auto tags = Tags("[Scores \"x\"]" + line + "abcdefgh\"i\"\nj[B \"y\"]");
  ASSERT_EQ(tags.size(), 2U);
  EXPECT_EQ(tags[0].Section, line + "abcd");
}

TEST(PbnScan, ALineOfBlanksIsNoticedACommentIsNone) {
  const auto tags =
      Tags("[A \"1\"]\n \t\n[B \"2\"]\n;\n%\n{\n\n}\n[C \"3\"]\n[D \"4\"]\n\n\n[E \"5\"]");
  ASSERT_EQ(tags.size(), 5U);
  EXPECT_FALSE(tags[0].BehindBlankLine);
  EXPECT_TRUE(tags[1].BehindBlankLine);
  EXPECT_FALSE(tags[2].BehindBlankLine);
  EXPECT_FALSE(tags[3].BehindBlankLine);
  EXPECT_TRUE(tags[4].BehindBlankLine);
}

TEST(PbnScan, TheLinesOfAValueAreNoneOfBlanks) {
  for (const char* text : {"[A\n\"1\"\n[B \"2\"]", "[A \"1\n\n\"\n[B \"2\"]"}) {
    const auto tags = Tags(text);
    ASSERT_EQ(tags.size(), 2U) << text;
    EXPECT_FALSE(tags[1].BehindBlankLine) << text;
  }
}

TEST(PbnScanFault, AValueWithoutItsQuoteEndsWithItsLine) {
  EXPECT_THAT(Pairs("[A \"x\n[B \"y]\n[C \"z\"]"), ElementsAre("A=x", "B=y", "C=z"));
  EXPECT_THAT(Flaws("[A \"x\n[B \"y]\n[C \"z\"]"),
              ElementsAre(PbnFlaw{Flaw::kNoQuote, 1}, PbnFlaw{Flaw::kNoQuote, 2}));
}

TEST(PbnScanFault, AValueWithoutItsQuoteAtTheEndOfTheText) {
  EXPECT_THAT(Pairs("[A \"x] \nrest"), ElementsAre("A=x"));
  EXPECT_THAT(Pairs("[A \""), ElementsAre("A="));
}

TEST(PbnScanFault, ALineThatEndsWithABracketIsNotGoneOnWith) {
  EXPECT_THAT(Pairs("[A \"x]\n{\"a\"}\n[B \"y\"]"), ElementsAre("A=x", "B=y"));
}

TEST(PbnScanFault, ABackslashInFrontOfTheClosingQuoteIsNoEscape) {
  EXPECT_THAT(Pairs("[Site \"C:\\\"]\n[B \"y\"]"), ElementsAre("Site=C:\\", "B=y"));
}

TEST(PbnScanFault, QuotesInAValueThatAreNotEscapedAreText) {
  EXPECT_THAT(Pairs("[Event \"The \"Big\" Game\"][B \"y\"]"),
              ElementsAre("Event=The \"Big\" Game", "B=y"));
  EXPECT_THAT(Flaws("[Event \"The \"Big\" Game\"]"), IsEmpty());
}

TEST(PbnScanFault, ATagWithoutItsBracketEndsInFrontOfTheNext) {
  const std::string text = "[A \"x\"\n[B \"y\" [C \"z\"]";
  EXPECT_THAT(Pairs(text), ElementsAre("A=x", "B=y", "C=z"));
  EXPECT_THAT(Flaws(text), ElementsAre(PbnFlaw{Flaw::kNoBracket, 1}, PbnFlaw{Flaw::kNoBracket, 2}));
}

TEST(PbnScanFault, ATagWithoutItsOpeningBracketIsSkippedAndTold) {
  const std::string text = "Site \"x\"]\n[A \"x\"]\nBoard \"7\" ]\n1 \"a\" 2\n[B \"y\"]";
  EXPECT_THAT(Pairs(text), ElementsAre("A=x", "B=y"));
  EXPECT_THAT(Flaws(text), ElementsAre(PbnFlaw{Flaw::kNoOpening, 1}, PbnFlaw{Flaw::kNoOpening, 3}));
}

TEST(PbnScanFault, BehindATagWithoutItsBracketTheNextLineIsItsSection) {
  const auto tags = Tags("[Scores \"x\"\n1C Pass\n[B \"y\"]");
  ASSERT_EQ(tags.size(), 2U);
  EXPECT_EQ(tags[0].Section, "1C Pass\n");
}

TEST(PbnScanFault, TextBetweenAValueAndItsBracketIsSkipped) {
  EXPECT_THAT(Pairs("[A \"x\" and more][B \"y\"]"), ElementsAre("A=x", "B=y"));
  EXPECT_THAT(Flaws("[A \"x\" and more][B \"y\"]"), ElementsAre(PbnFlaw{Flaw::kSurplus, 1}));
}

TEST(PbnScanFault, AValueWithoutQuotesGoesToItsBracketOrLineEnd) {
  EXPECT_THAT(Pairs("[Board 3 ][A b\n[C]\n[D e\"]"), ElementsAre("Board=3", "A=b", "C=", "D=e"));
  EXPECT_THAT(Flaws("[Board 3]"), ElementsAre(PbnFlaw{Flaw::kBareValue, 1}));
}

TEST(PbnScanFault, ACommentThatDoesNotEndIsItsLine) {
  EXPECT_THAT(Pairs("{a [A \"1\"]\n[B \"2\"] {b\n[C \"3\"]"), ElementsAre("B=2", "C=3"));
  EXPECT_THAT(Flaws("{a [A \"1\"]\n[B \"2\"] {b\n[C \"3\"]"),
              ElementsAre(PbnFlaw{Flaw::kOpenComment, 1}, PbnFlaw{Flaw::kOpenComment, 2}));
}

TEST(PbnScanFault, ACommentOverLinesThatBeginWithTagsIsToldOnce) {
  EXPECT_THAT(Flaws("\n{ lost:\n[A \"1\"]\n [B \"2\"]\n}[C \"3\"]"),
              ElementsAre(PbnFlaw{Flaw::kTagsInComment, 2}));
  EXPECT_THAT(Flaws("{ [A \"1\"] }[C \"3\"]"), IsEmpty());
}

TEST(PbnScanFault, OnlyTheFirstFaultsOfATagAreKept) {
  std::string text = "[A \"1\"]";
  for (int i = 0; i < 1000; ++i) text += "{\n";
  EXPECT_EQ(Flaws(text).size(), PbnTagPair::kMostFlaws);
}

TEST(PbnScan, ATextWithoutTagsGivesNone) {
  for (const char* text : {"", "[", "[[[[", "{", "}", "\"", "\\", "[\n\n", ";", "%", "[ ;"}) {
    EXPECT_THAT(Pairs(text), IsEmpty()) << text;
  }
}

TEST(PbnScan, ATextMayEndAnywhere) {
  const std::string text = "[Event {a} \"x \\\" y\" ;b\n] 1 \"c\" {d}";
  for (std::size_t size = 0; size <= text.size(); ++size) {
    EXPECT_LE(Pairs(text.substr(0, size)).size(), 1U) << size;
  }
}

}  // namespace
}  // namespace morvane::files
