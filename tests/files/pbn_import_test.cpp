#include "files/pbn_import.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "files/pbn_import_desk.h"

namespace morvane::files {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

const std::string kOne = std::string("[Board \"1\"]") + kDeal + "\n";

TEST(PbnImport, TakesABoardWithAllThatItHas) {
  const Imported file("[Board \"5\"][Dealer \"S\"][Vulnerable \"Both\"]" + std::string(kDeal) +
                      "[DoubleDummyTricks \"789abddddd0000011111\"]");
  EXPECT_EQ(file.Set->FirstBoard, 5);
  EXPECT_EQ(file.Set->LastBoard, 5);
  EXPECT_EQ(file.At(5).Number, 5);
  EXPECT_EQ(file.At(5).Dealer, kSouth);
  EXPECT_EQ(file.At(5).Vul, 4);
  EXPECT_EQ(file.Cards(5), kCards);
  EXPECT_EQ(file.At(5).Status, Board::kComplete);
  EXPECT_EQ(file.At(5).Tricks, (std::array<std::uint8_t, 21>{1, 2, 3, 4, 5, 0, 0, 0, 0, 0, 7,
                                                             7, 7, 7, 7, 0, 0, 0, 0, 0, 0}));
  EXPECT_EQ(file.Report.Games, 1);
  EXPECT_EQ(file.Report.Taken, 1);
  EXPECT_EQ(file.Report.Repeated, 0);
  EXPECT_EQ(file.Report.PassedOver.Count, 0);
  EXPECT_EQ(file.Report.Notes.Count, 0);
}

TEST(PbnImport, NumbersThatAreMissingAreEmptyBoards) {
  const Imported file("[Board \"7\"]" + std::string(kDeal) + "[Board \"3\"]" + kDeal);
  EXPECT_EQ(file.Set->FirstBoard, 3);
  EXPECT_EQ(file.Set->LastBoard, 7);
  EXPECT_EQ(file.At(5), Board{});
  EXPECT_EQ(file.Report.Taken, 2);
}

TEST(PbnImport, AGameWithNeitherNumberNorDealTagIsNoBoard) {
  const Imported file("[Event \"x\"][Dealer \"N\"]");
  EXPECT_FALSE(file.Set->Exists());
  EXPECT_EQ(file.Report.Games, 0);
  EXPECT_EQ(file.Set->EventName, "x");
}

TEST(PbnImport, DealerAndVulnerabilityThatAreNotKnownAreThoseOfTheNumber) {
  for (const char* tags :
       {"", "[Dealer \"\"][Vulnerable \"\"]", "[Dealer \"?\"][Vulnerable \"?\"]"}) {
    const Imported file(std::string(tags) + "[Board \"2\"]" + kDeal);
    EXPECT_EQ(file.At(2).Dealer, 0);
    EXPECT_EQ(file.At(2).Vul, 0);
    EXPECT_EQ(file.Report.Notes.Count, 0);
  }
}

TEST(PbnImport, DealerAndVulnerabilityThatMakeNoSenseAreToo) {
  const Imported file("[Board \"2\"]\n[Dealer \"Q\"]\n[Vulnerable \"Everybody at the table\"]\n" +
                      std::string(kDeal));
  EXPECT_EQ(file.At(2).Dealer, 0);
  EXPECT_EQ(file.At(2).Vul, 0);
  EXPECT_THAT(file.Report.Notes.First,
              ElementsAre("Line 2: dealer \"Q\" is none; the number decides",
                          "Line 3: vulnerability \"Everybody at the tab...\" is none; the number "
                          "decides"));
}

TEST(PbnImport, ABlankOfAnyKindIsABlankInEveryValue) {
  const Imported file("[Event \"My\tCup\"][Board \"\v2\t\"][Vulnerable \"N\tS\"]" +
                      std::string("[Deal \"N\t:AKQJT98765432...\v.AKQJT98765432..\f") +
                      "..AKQJT98765432.\t...AKQJT98765432\"]");
  EXPECT_EQ(file.Set->EventName, "My Cup");
  EXPECT_EQ(file.At(2).Vul, 2);
  EXPECT_EQ(file.Cards(2), kCards);
  EXPECT_EQ(file.Report.Notes.Count, 0);
}

TEST(PbnImport, ADashIsNobodyVulnerable) {
  EXPECT_EQ(Imported("[Vulnerable \"-\"][Board \"2\"]").At(2).Vul, 1);
}

TEST(PbnImport, ABoardWithoutADealIsAnEmptyBoard) {
  for (const char* deal : {"", "[Deal \"\"]", "[Deal \"?\"]", "[Deal \"-\"]"}) {
    const Imported file(std::string("[Board \"2\"]") + deal);
    EXPECT_EQ(file.Report.Taken, 1);
    EXPECT_EQ(file.At(2).Number, 2);
    EXPECT_EQ(file.At(2).Status, Board::kEmpty);
    EXPECT_THAT(file.Report.Notes.First,
                ElementsAre("Line 1: board 2 is incomplete: no hand is given"));
  }
}

TEST(PbnImport, ThreeHandsDoNotMakeTheFourth) {
  const Imported file(
      "\n[Board \"2\"][Deal \"N:AKQJT98765432... .AKQJT98765432.. "
      "..AKQJT98765432. -\"]");
  EXPECT_EQ(file.At(2).Status, Board::kIncomplete);
  EXPECT_EQ(file.At(2).HandCount, (std::array<std::uint8_t, 5>{0, 13, 13, 13, 0}));
  EXPECT_THAT(file.Report.Notes.First,
              ElementsAre("Line 2: board 2 is incomplete: West is not given"));
}

TEST(PbnImport, HandsThatAreVoidShortOrLongAreToldApartFromThoseNotGiven) {
  const Imported file("[Board \"2\"][Deal \"N:AKQJT98765432.A.. ... .K.. -\"]");
  EXPECT_THAT(file.Report.Notes.First,
              ElementsAre("Line 1: board 2 is incomplete: North has 14 cards, East has 0 cards, "
                          "South has 1 card, West is not given"));
}

TEST(PbnImport, AFaultyDealPassesItsBoardOver) {
  const Imported file("[Board \"2\"]\n[Deal \"N:AA.. - - -\"]\n" + kOne);
  EXPECT_EQ(file.Report.Taken, 1);
  EXPECT_EQ(file.Set->FirstBoard, 1);
  EXPECT_EQ(file.Set->LastBoard, 1);
  EXPECT_THAT(file.Report.PassedOver.First,
              ElementsAre("Line 2: board 2: the A of Spades stands twice"));
}

TEST(PbnImport, WhatIsPassedOverLeavesNoNotes) {
  const Imported file("[Board \"2\"][Dealer \"Q\"][Deal \"N:AA.. - - -\"]");
  EXPECT_EQ(file.Report.Notes.Count, 0);
}

TEST(PbnImport, ADealThatIsRepeatedIsTheSameUntilAnotherComes) {
  const Imported file("[Board \"1\"]" + std::string(kDeal) + "[Board \"2\"][Deal \"#\"]" +
                      "[Event \"x\"]\n[Event \"x\"][Board \"3\"]" + kDeal + "[Board \"4\"]" +
                      "[Deal \"N:AA..\"][Board \"5\"][Deal \"#\"][Board \"6\"]");
  EXPECT_EQ(file.Cards(2), kCards);
  EXPECT_EQ(file.Cards(3), kCards);
  EXPECT_THAT(file.Report.PassedOver.First,
              ElementsAre("Line 2: board 4: the A of Spades stands twice",
                          "Line 2: board 5: the A of Spades stands twice"));
  EXPECT_EQ(file.At(6).Status, Board::kEmpty);
  EXPECT_EQ(file.Report.Taken, 4);
}

TEST(ImportedNumbers, AreGoneOnWithFromTheBoardBefore) {
  const Imported file("[Board \"7\"]" + std::string(kDeal) + kOtherDeal + kDeal);
  EXPECT_EQ(file.Cards(8), kOtherCards);
  EXPECT_EQ(file.Cards(9), kCards);
  EXPECT_EQ(file.Set->LastBoard, 9);
  EXPECT_EQ(file.Report.Taken, 3);
}

TEST(ImportedNumbers, BeginWithOne) {
  const Imported file(std::string(kDeal) + kOtherDeal);
  EXPECT_EQ(file.Set->FirstBoard, 1);
  EXPECT_EQ(file.Cards(2), kOtherCards);
}

TEST(ImportedNumbers, PassOverThoseThatAnotherGameHas) {
  const Imported file("[Board \"1\"]" + std::string(kDeal) + kOtherDeal + "\n\n[Board \"2\"]" +
                      kDeal);
  EXPECT_EQ(file.Cards(2), kCards);
  EXPECT_EQ(file.Cards(3), kOtherCards);
}

TEST(ImportedNumbers, AreGivenOnce) {
  // The deal behind board 4 becomes 5; the deal behind board 3 finds 4 and 5 taken.
  const Imported file("[Board \"4\"]" + std::string(kDeal) + kDeal + "\n\n[Board \"3\"]" + kDeal +
                      kOtherDeal);
  EXPECT_EQ(file.Cards(5), kCards);
  EXPECT_EQ(file.Cards(6), kOtherCards);
  EXPECT_EQ(file.Report.Taken, 4);
}

TEST(ImportedNumbers, AFaultyDealHasItsPlaceAllTheSame) {
  const Imported file(kDeal + std::string("[Deal \"?:\"]") + "[Deal \"N:AA.. - - -\"]" + kDeal);
  EXPECT_EQ(file.Report.Taken, 2);
  EXPECT_EQ(file.Cards(4), kCards);
}

TEST(ImportedNumbers, EndWith640) {
  const Imported file("[Board \"640\"]" + std::string(kDeal) + "\n" + kOtherDeal);
  EXPECT_EQ(file.Report.Taken, 1);
  EXPECT_THAT(file.Report.PassedOver.First,
              ElementsAre("Line 2: no board number is left for a deal without one"));
}

TEST(ImportedNumbers, OthersThan1To640PassTheBoardOver) {
  const Imported file("[Board \"0\"]\n[Board \"641\"]\n[Board \"4a\"]" + std::string(kDeal));
  EXPECT_EQ(file.Report.Taken, 0);
  EXPECT_THAT(file.Report.PassedOver.First,
              ElementsAre("Line 1: board number \"0\" is not a number from 1 to 640",
                          "Line 2: board number \"641\" is not a number from 1 to 640",
                          "Line 3: board number \"4a\" is not a number from 1 to 640"));
}

TEST(ImportedNumbers, AGameWithEmptyTagsIsPassedOver) {
  const Imported file("[Board \"\"][Deal \"\"]");
  EXPECT_EQ(file.Report.Taken, 0);
  EXPECT_THAT(file.Report.PassedOver.First,
              ElementsAre("Line 1: a game has neither a board number nor a deal"));
}

TEST(RepeatedBoard, WithTheSameDealIsTakenOnce) {
  const Imported file(kOne + kOne + kOne);
  EXPECT_EQ(file.Report.Games, 3);
  EXPECT_EQ(file.Report.Taken, 1);
  EXPECT_EQ(file.Report.Repeated, 2);
  EXPECT_EQ(file.Report.PassedOver.Count, 0);
}

TEST(RepeatedBoard, WithAnotherDealIsPassedOver) {
  const Imported file("\n" + kOne + "[Board \"1\"]" + kOtherDeal);
  EXPECT_EQ(file.Cards(1), kCards);
  EXPECT_EQ(file.Report.Taken, 1);
  EXPECT_THAT(file.Report.PassedOver.First,
              ElementsAre("Line 3: board 1 has another deal than in line 2"));
}

TEST(RepeatedBoard, FillsInWhatTheFirstDidNotTell) {
  const Imported file("[Board \"1\"]\n[Board \"1\"][Dealer \"S\"][Deal \"N:AKQJT98765432...\"]\n" +
                      kOne +
                      "[Board \"1\"][Vulnerable \"All\"][DoubleDummyTricks "
                      "\"77777777777777777777\"]");
  EXPECT_EQ(file.Cards(1), kCards);
  EXPECT_EQ(file.At(1).Status, Board::kComplete);
  EXPECT_EQ(file.At(1).Dealer, kSouth);
  EXPECT_EQ(file.At(1).Vul, 4);
  EXPECT_EQ(file.At(1).Tricks[19], 1);
  EXPECT_EQ(file.Report.Taken, 1);
  EXPECT_EQ(file.Report.Repeated, 3);
  EXPECT_THAT(file.Report.Notes.First, IsEmpty());
}

TEST(RepeatedBoard, ChangesNothingThatTheFirstToldAndSaysSo) {
  const Imported file("[Dealer \"S\"][Vulnerable \"NS\"]" + kOne +
                      "[Dealer \"W\"][Vulnerable \"EW\"]" +
                      "[Board \"1\"][Deal \"N:AKQJT98765432...\"]");
  EXPECT_EQ(file.At(1).Dealer, kSouth);
  EXPECT_EQ(file.At(1).Vul, 2);
  EXPECT_EQ(file.Cards(1), kCards);
  EXPECT_THAT(
      file.Report.Notes.First,
      ElementsAre("Line 2: board 1 has another dealer than in line 1, which counts",
                  "Line 2: board 1 has another vulnerability than in line 1, which counts"));
}

TEST(ImportedAnalysis, IsTheTableWhereThereAreNoTricks) {
  std::string table = "[OptimumResultTable \"Declarer;Denomination\\2R;Result\\2R\"]\n";
  for (const char* hand : {"N", "E", "S", "W"}) {
    for (const char* name : {"S", "H", "D", "C", "NT"}) {
      table += std::string(hand) + " " + name + " 9\n";
    }
  }
  for (const char* tricks : {"", "[DoubleDummyTricks \"9999999999999999999*\"]"}) {
    const Imported file(kOne + tricks + table);
    EXPECT_EQ(file.At(1).Tricks[0], 3);
    EXPECT_EQ(file.At(1).Tricks[19], 3);
    EXPECT_EQ(file.Report.Notes.Count, 0);
  }
  EXPECT_EQ(Imported(kOne + "[DoubleDummyTricks \"77777777777777777777\"]" + table).At(1).Tricks[0],
            1);
}

TEST(ImportedAnalysis, MayHaveBlanksOfAnyKind) {
  std::string table = "[OptimumResultTable \"Declarer;Denomination;Result\"]\n";
  for (const char* hand : {"N", "E", "S", "W"}) {
    for (const char* name : {"S", "H", "D", "C", "NT"}) {
      table += std::string("\v") + hand + "\t" + name + "\f9\n";
    }
  }
  for (const std::string& tag : {std::string("[DoubleDummyTricks \"99999\t99999\v99999\f99999\"]"),
                                 table, std::string("[Ability \"NS:99999\tEW:99999\"]")}) {
    EXPECT_EQ(Imported(kOne + tag).At(1).Tricks[0], 3) << tag;
  }
}

TEST(ImportedAnalysis, IsTheAbilityWhereThereIsNothingElse) {
  EXPECT_EQ(Imported(kOne + "[Ability \"NESW:88888\"]").At(1).Tricks[12], 2);
}

TEST(ImportedAnalysis, WithoutAnyResultIsNotMissed) {
  for (const char* tag :
       {"[DoubleDummyTricks \"\"]", "[DoubleDummyTricks \"?\"]", "[Ability \"-\"]",
        "[OptimumResultTable \"#\"]", "[OptimumResultTable \"Declarer;Denomination;Result\"]\n"}) {
    EXPECT_EQ(Imported(kOne + tag).Report.Notes.Count, 0) << tag;
  }
}

TEST(ImportedAnalysis, IsLeftOutAsAWholeWithAnUnknownResult) {
  const Imported file(kOne + "[DoubleDummyTricks \"7777777777777777777*\"]");
  EXPECT_EQ(file.At(1).Tricks, (std::array<std::uint8_t, 21>{}));
  EXPECT_THAT(file.Report.Notes.First,
              ElementsAre("Line 2: double-dummy results that are not whole were left out"));
}

TEST(ImportedFlaws, AreToldWithTheirLines) {
  const Imported file("[Event \"x]\n[Site \"y\"\n[Board 1]\n[Dealer \"N\" or S]\n" +
                      std::string(kDeal) + "\n{ gone:\n[Board \"2\"]\n}\n{ open\nSite \"x\"]");
  EXPECT_EQ(file.Report.Taken, 1);
  EXPECT_THAT(file.Report.Notes.First,
              ElementsAre("Line 1: a closing quote is missing",
                          "Line 2: a closing bracket is missing", "Line 3: a value has no quotes",
                          "Line 4: text between a value and its closing bracket was skipped",
                          "Line 6: a comment holds tags, which were skipped",
                          "Line 9: a comment does not end; only its line was skipped",
                          "Line 10: an opening bracket is missing; its tag was skipped"));
}

}  // namespace
}  // namespace morvane::files
