#include "files/pbn_import_games.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "files/pbn_import_values.h"

namespace morvane::files {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// The values of each game in the order of `GameTag`; a tag that it lacks is left out.
std::vector<std::string> Games(std::string_view text) {
  PbnGames games(text);
  std::vector<std::string> result;
  while (const PbnGame* const game = games.Next()) {
    std::string line;
    for (const GameValue& value : game->Values) {
      if (value.Line > 0) line.append(value.Text()).append("|");
    }
    result.push_back(line);
  }
  return result;
}

TEST(PbnGame, EndsInFrontOfATagThatItHas) {
  EXPECT_THAT(Games("[Board \"1\"][Deal \"a\"][Board \"2\"][Deal \"b\"]"),
              ElementsAre("1|a|", "2|b|"));
  EXPECT_THAT(Games("[Deal \"a\"][Deal \"b\"]"), ElementsAre("a|", "b|"));
}

TEST(PbnGame, EndsBehindABlankLineOnceItHasADeal) {
  EXPECT_THAT(Games("[Board \"1\"]\n[Deal \"a\"]\n\n[Dealer \"S\"]\n[Board \"2\"]\n[Deal \"b\"]"),
              ElementsAre("1|a|", "2|S|b|"));
}

TEST(PbnGame, ABlankLineInFrontOfTheDealDoesNotEndIt) {
  EXPECT_THAT(Games("[Event \"x\"]\n\n[Board \"1\"]\n\n[Deal \"a\"]"), ElementsAre("x|1|a|"));
}

TEST(PbnGame, ABlankLineInFrontOfAnAnalysisDoesNotEndIt) {
  EXPECT_THAT(Games("[Board \"1\"]\n[Deal \"a\"]\n\n[Auction \"N\"]\nPass\n\n"
                    "[DoubleDummyTricks \"c\"]\n\n[Ability \"d\"]"),
              ElementsAre("1|a|c|d|"));
}

TEST(PbnGame, ItsTagsMayComeInAnyOrder) {
  EXPECT_THAT(Games("[Deal \"a\"][Vulnerable \"v\"][Dealer \"d\"][Board \"1\"]"),
              ElementsAre("1|d|v|a|"));
}

TEST(PbnGame, TagNamesAreKnownInAnyCaseAndAsAWholeOnly) {
  EXPECT_THAT(Games("[BOARD \"1\"][dealer \"N\"][BoardX \"2\"][Dea \"a\"][DealX \"b\"]"),
              ElementsAre("1|N|"));
}

TEST(PbnGame, OfTwoAnalysesTheFirstCounts) {
  EXPECT_THAT(Games("[Board \"1\"][Ability \"a\"][Ability \"b\"]"), ElementsAre("1|a|"));
}

TEST(PbnGame, KnowsItsLineAndThoseOfItsValues) {
  PbnGames games("\n[Annotator \"x\"]\n[Board \"1\"]\n[Deal \"a\"]");
  const PbnGame* const game = games.Next();
  ASSERT_NE(game, nullptr);
  EXPECT_EQ(game->Line, 3);
  EXPECT_EQ(game->At(GameTag::kDeal).Line, 4);
  EXPECT_EQ(games.Next(), nullptr);
}

TEST(PbnGame, KeepsTheRowsOfItsResultTable) {
  PbnGames games("[OptimumResultTable \"Declarer\"]\nN\n[Board \"1\"]");
  EXPECT_EQ(games.Next()->TableRows, "\nN\n");
}

TEST(PbnGame, BlanksAtTheEndsOfAValueAreGone) {
  EXPECT_THAT(Games("[Board \"  1 \"]"), ElementsAre("1|"));
}

TEST(PbnGame, AValueThatIsTooLongIsCutBetweenCharacters) {
  std::string value(kLongestValue, 'x');
  value += "\xC3\xA9\xC3\xA9";
  PbnGames games("[Event \"" + value + "\"]");
  EXPECT_EQ(games.Next()->At(GameTag::kEvent).Text(), std::string(kLongestValue, 'x') + "\xC3\xA9");
}

TEST(PbnGame, MarksInFrontOfAValueThatIsTooLongDoNotMakeItShorter) {
  PbnGames games("[Deal \"##" + std::string(kLongestValue + 2, 'x') + "\"]");
  EXPECT_EQ(games.Next()->At(GameTag::kDeal).Text(), std::string(kLongestValue + 1, 'x'));
}

TEST(PbnGame, MissingQuotesOfATagThatIsSkippedDoNoHarm) {
  PbnGames games("[Board \"1\"][strong] [Note 3]");
  EXPECT_THAT(games.Next()->Flaws, IsEmpty());
}

TEST(PbnGame, FaultsOfTagsThatAreSkippedAreKept) {
  PbnGames games("[Board \"1\"][Scoring \"MP]\n");
  EXPECT_THAT(games.Next()->Flaws, ElementsAre(PbnFlaw{PbnFlaw::Kind::kNoQuote, 1}));
}

TEST(PbnGame, ATextWithoutTagsThatCountHasNone) {
  EXPECT_THAT(Games("[Scoring \"MP\"][Play \"N\"]"), IsEmpty());
  EXPECT_THAT(Games(""), IsEmpty());
}

TEST(RepeatMark, StandsForTheValueOfTheGameBefore) {
  EXPECT_THAT(Games("[Event \"x\"][Board \"1\"]\n[Event \"#\"][Board \"#\"]\n"
                    "[Event \"#\"][Board \"2\"]"),
              ElementsAre("x|1|", "x|1|", "x|2|"));
}

TEST(RepeatMark, IsEmptyWhereTheGameBeforeHasNothing) {
  EXPECT_THAT(Games("[Board \"1\"][Event \"#\"][Board \"2\"][Event \"x\"][Board \"3\"]"
                    "[Board \"4\"][Event \"#\"]"),
              ElementsAre("|1|", "x|2|", "3|", "|4|"));
}

TEST(RepeatMark, InFrontOfAValueIsTakenOff) {
  EXPECT_THAT(Games("[Event \"#x\"][Board \"1\"]"), ElementsAre("x|1|"));
}

TEST(RepeatMark, TwoMakeTheValueLastForGamesWithoutTheTag) {
  EXPECT_THAT(Games("[Board \"1\"][Site \"## a\"][Board \"2\"][Board \"3\"][Site \"b\"]"
                    "[Board \"4\"]"),
              ElementsAre("a|1|", "a|2|", "b|3|", "a|4|"));
}

TEST(RepeatMark, TwoAloneMakeTheValueOfTheGameBeforeLast) {
  EXPECT_THAT(Games("[Board \"1\"][Site \"a\"][Board \"2\"][Site \"##\"][Board \"3\"]"),
              ElementsAre("a|1|", "a|2|", "a|3|"));
}

TEST(RepeatMark, TwoLastBehindAGameWithAnotherValue) {
  EXPECT_THAT(Games("[Board \"1\"][Site \"##a\"][Board \"2\"][Site \"b\"][Board \"3\"][Site \"#\"]"
                    "[Board \"4\"][Board \"5\"][Site \"#\"]"),
              ElementsAre("a|1|", "b|2|", "b|3|", "a|4|", "a|5|"));
}

TEST(RepeatMark, TwoWithAMarkForUnknownEndTheLastOnes) {
  EXPECT_THAT(Games("[Board \"1\"][Site \"##a\"][Board \"2\"][Site \"##?\"][Board \"3\"]"),
              ElementsAre("a|1|", "|2|", "|3|"));
}

/// For each game the places of the values that are others than in the game before.
std::vector<std::string> Changes(std::string_view text) {
  PbnGames games(text);
  std::vector<std::string> result;
  while (const PbnGame* const game = games.Next()) {
    std::string places;
    for (const GameValue& value : game->Values) places += value.Changed ? 'x' : '.';
    result.push_back(places);
  }
  return result;
}

TEST(RepeatMark, MakesNoChange) {
  // The values are Event, Site, Date, EventDate, Board ...
  EXPECT_THAT(Changes("[Event \"a\"][Site \"##s\"][Board \"1\"][Event \"#\"][Board \"2\"]"
                      "[Event \"a\"][Site \"t\"][Board \"2\"][Board \"3\"]"),
              ElementsAre("xx..x......", "....x......", ".x.........", "xx..x......"));
}

TEST(RepeatMark, TwoWithAnotherValueTakeThePlaceOfTheLastOnes) {
  EXPECT_THAT(Games("[Board \"1\"][Site \"##a\"][Board \"2\"][Site \"##b\"][Board \"3\"]"),
              ElementsAre("a|1|", "b|2|", "b|3|"));
}

}  // namespace
}  // namespace morvane::files
