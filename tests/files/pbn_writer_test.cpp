#include "files/pbn_writer.h"

#include "files/pbn_reader.h"
#include "files/pbn_values.h"
#include "files/sets.h"
#include "support/fakes.h"

namespace morvane::files {
namespace {

TEST(PbnWriter, WritesTheFileByteForByte) {
  BoardSet set = EmptySet(1, 2);
  set.EventName = "Evening";
  set.EventDate = "2026.03.03";
  set.At(1) = test::SuitBoard(1);
  set.At(2) = test::RoundBoard(2);
  // Board 1 is dealt by North with none vulnerable, board 2 by East with North and South. On board
  // 2 card c is held by hand (c - 1) mod 4, counted out by hand from the Ace of Spades.
  EXPECT_EQ(PbnText(set, "1.0 with Sort 1.0  with Poker 1.5 ", true),
            "% Morvane ver 1.0 with Sort 1.0  with Poker 1.5 \r\n"
            "[Event \"Evening\"]\r\n"
            "[Site \"\"]\r\n"
            "[Date \"2026.03.03\"]\r\n"
            "[Board \"1\"]\r\n"
            "[Dealer \"N\"]\r\n"
            "[Vulnerable \"None\"]\r\n"
            "[Deal \"N:AKQJT98765432... .AKQJT98765432.. ..AKQJT98765432. ...AKQJT98765432\"]\r\n"
            "\r\n"
            "[Event \"#\"]\r\n"
            "[Site \"#\"]\r\n"
            "[Date \"#\"]\r\n"
            "[Board \"2\"]\r\n"
            "[Dealer \"E\"]\r\n"
            "[Vulnerable \"NS\"]\r\n"
            "[Deal \"E:K95.AT62.J73.Q84 Q84.K95.AT62.J73 J73.Q84.K95.AT62 AT62.J73.Q84.K95\"]\r\n"
            "\r\n");
}

TEST(PbnWriter, DealerAndVulnerabilityOfTheBoardGoBeforeTheNumbers) {
  BoardSet set = EmptySet(1, 1);
  set.At(1) = test::SuitBoard(1);
  set.At(1).Dealer = kWest;
  set.At(1).Vul = 4;
  const std::string text = PbnText(set, "", true);
  EXPECT_NE(text.find("[Dealer \"W\"]\r\n[Vulnerable \"All\"]\r\n[Deal \"W:...AKQ"),
            std::string::npos);
}

TEST(PbnWriter, ZeroDealerAndVulnerabilityFollowTheNumber) {
  BoardSet set = EmptySet(4, 4);
  set.At(4).Number = 4;
  EXPECT_NE(PbnText(set, "", true)
                .find("[Board \"4\"]\r\n[Dealer \"W\"]\r\n[Vulnerable "
                      "\"All\"]\r\n[Deal \"W:- - - -\"]\r\n\r\n"),
            std::string::npos);
}

TEST(PbnWriter, ABoardThatNeverWasIsWrittenUnderItsPlace) {
  const BoardSet set = EmptySet(639, 640);
  const std::string text = PbnText(set, "", true);
  EXPECT_NE(text.find("[Board \"639\"]"), std::string::npos);
  EXPECT_NE(text.find("[Board \"640\"]"), std::string::npos);
}

TEST(PbnWriter, TheAnalysisOfABoardFollowsItsDeal) {
  BoardSet set = EmptySet(1, 1);
  set.At(1) = test::SuitBoard(1);
  // North no-trump .. clubs 1 2 3 4 5, East 6 7 0 0 0, South all 7, West only clubs 1.
  set.At(1).Tricks = {1, 2, 3, 4, 5, 6, 7, 0, 0, 0, 7, 7, 7, 7, 7, 0, 0, 0, 0, 1, 0};
  const std::string text = PbnText(set, "", true);
  const std::string expected =
      "[DoubleDummyTricks \"789abdddddcd11111117\"]\r\n"
      "[OptimumResultTable \"Declarer;Denomination\\2R;Result\\2R\"]\r\n"
      "N  S  8\r\nN  H  9\r\nN  D 10\r\nN  C 11\r\nN NT  7\r\n"
      "E  S 13\r\nE  H  1\r\nE  D  1\r\nE  C  1\r\nE NT 12\r\n"
      "S  S 13\r\nS  H 13\r\nS  D 13\r\nS  C 13\r\nS NT 13\r\n"
      "W  S  1\r\nW  H  1\r\nW  D  1\r\nW  C  7\r\nW NT  1\r\n"
      "\r\n";
  ASSERT_GE(text.size(), expected.size());
  EXPECT_EQ(text.substr(text.size() - expected.size()), expected);
}

TEST(PbnWriter, OnlyAnAnalysedBoardHasTheTrickLines) {
  BoardSet set = EmptySet(1, 3);
  for (int n = 1; n <= 3; ++n) set.At(n) = test::SuitBoard(n);
  set.At(2).Tricks[19] = 7;
  const std::string text = PbnText(set, "", true);
  const std::size_t tricks = text.find("[DoubleDummyTricks");
  EXPECT_EQ(tricks, text.rfind("[DoubleDummyTricks"));
  EXPECT_EQ(text.find("[OptimumResultTable"), text.rfind("[OptimumResultTable"));
  EXPECT_GT(tricks, text.find("[Board \"2\"]"));
  EXPECT_LT(text.find("W NT  1\r\n"), text.find("[Board \"3\"]"));
}

TEST(PbnWriter, WithoutTheSettingNoAnalysisIsWritten) {
  BoardSet set = EmptySet(1, 1);
  set.At(1) = test::SuitBoard(1);
  set.At(1).Tricks.fill(7);
  set.At(1).Tricks[20] = 0;
  EXPECT_EQ(PbnText(set, "", false).find("Double"), std::string::npos);
  EXPECT_NE(PbnText(set, "", true).find("\"dddddddddddddddddddd\""), std::string::npos);
}

TEST(PbnDealValue, AHandWithoutCardsIsADashAndAShortOneKeepsItsDots) {
  Board board;
  board.Cards[1] = kSouth;
  board.Cards[52] = kWest;
  EXPECT_EQ(FormatPbnDeal(board, kEast), "E:- A... ...2 -");
}

TEST(PbnTricksValue, ReadsBackWhatWasWritten) {
  Board board;
  for (std::size_t i = 0; i < 20; ++i) board.Tricks[i] = static_cast<std::uint8_t>(i * 3 % 8);
  Board back;
  EXPECT_EQ(ParsePbnTricks(FormatPbnTricks(board), back, InitMessages()), "");
  EXPECT_EQ(back.Tricks, board.Tricks);
}

TEST(PbnTricksValue, AnUnexpectedCharacterIsNoLevelAndTheWalkGoesOn) {
  Board board;
  board.Tricks.fill(5);
  EXPECT_NE(ParsePbnTricks("x7d11111111111111111", board, InitMessages()), "");
  EXPECT_EQ(board.Tricks[0], 0);
  EXPECT_EQ(board.Tricks[1], 1);
  EXPECT_EQ(board.Tricks[2], 7);
  EXPECT_EQ(board.Tricks[19], 0);
}

// Writer against reader.

BoardSet ThroughAFile(const BoardSet& set) {
  BoardSet back = EmptySet(1, 0);
  const auto fault = ParsePbn(PbnText(set, "9.9", true), back, InitMessages());
  EXPECT_FALSE(fault) << FaultText(*fault);
  return back;
}

TEST(PbnRoundTrip, ARepeatMarkAtTheStartOfAnEventTextIsLost) {
  BoardSet set = EmptySet(1, 1);
  set.EventName = "#1 Club";
  EXPECT_NE(PbnText(set, "", true).find("[Event \"#1 Club\"]"), std::string::npos);
  EXPECT_EQ(ThroughAFile(set).EventName, "1 Club");
}

TEST(PbnRoundTrip, AnAnalysisWithoutAnyTrickIsNone) {
  BoardSet set = EmptySet(1, 1);
  set.At(1) = test::SuitBoard(1);
  set.At(1).Tricks.fill(0);
  const std::string text = PbnText(set, "", true);
  EXPECT_EQ(text.find("DoubleDummyTricks"), std::string::npos);
  EXPECT_EQ(text.find("OptimumResultTable"), std::string::npos);
  EXPECT_THAT(ThroughAFile(set).At(1).Tricks, ::testing::Each(0));
}

TEST(PbnRoundTrip, TheLowestLevelAloneIsAnAnalysisAlsoOfABoardWithoutCards) {
  for (std::size_t i = 0; i < 20; ++i) {
    BoardSet set = EmptySet(1, 1);
    set.At(1).Tricks[i] = 1;
    EXPECT_EQ(ThroughAFile(set).At(1).Tricks, set.At(1).Tricks) << i;
  }
}

}  // namespace
}  // namespace morvane::files
