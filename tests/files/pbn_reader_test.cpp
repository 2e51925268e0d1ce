#include "files/pbn_reader.h"

#include <memory>

#include "files/parsed_text.h"
#include "files/pbn_values.h"
#include "files/sets.h"
#include "program/log_record.h"
#include "support/fakes.h"

namespace morvane::files {
namespace {

using ::testing::Each;

std::string FaultOf(const std::string& text) { return ParseWith(ParsePbn, text).Error; }

std::unique_ptr<BoardSet> SetOf(const std::string& text) {
  return ParseWith(ParsePbn, text).Sound();
}

std::string CardsOf(const Board& board) { return FormatBoardForLog(board, false); }

TEST(PbnReader, ReadsEveryTagOfABoard) {
  const auto set = SetOf(
      "[Event \"Evening\"]\r\n[Site \"Hall\"]\r\n[Date \"2026.03.03\"]\r\n[Board \"7\"]\r\n"
      "[Dealer \"S\"]\r\n[Vulnerable \"All\"]\r\n" +
      kSuitDeal + "\r\n[DoubleDummyTricks \"1789abcd11111111111d\"]\r\n");
  EXPECT_EQ(set->EventName, "Evening");
  EXPECT_EQ(set->EventSite, "Hall");
  EXPECT_EQ(set->EventDate, "2026.03.03");
  EXPECT_EQ(set->FirstBoard, 7);
  EXPECT_EQ(set->LastBoard, 7);
  EXPECT_EQ(set->CurrentBoard, 1);
  const Board& board = set->At(7);
  EXPECT_EQ(board.Number, 7);
  EXPECT_EQ(board.Dealer, kSouth);
  EXPECT_EQ(board.Vul, 4);
  EXPECT_EQ(CardsOf(board), CardsOf(test::SuitBoard(7)));
  EXPECT_EQ(board.Status, Board::kComplete);
  EXPECT_EQ(board.Hcp[kWest], 10);
  // Declarers North, South, East, West: the sixth to eighth characters, b c d, are South's.
  EXPECT_EQ(board.Tricks, (std::array<std::uint8_t, 21>{0, 1, 2, 3, 4, 0, 0, 0, 0, 0, 5,
                                                        6, 7, 0, 0, 0, 0, 0, 0, 7, 0}));
}

TEST(PbnReader, AFileOfCommentsOnlyIsEmpty) {
  EXPECT_EQ(FaultOf("% one\r\n% two\r\n"), Told("File is empty"));
}

TEST(PbnReader, AFileWithoutABoardIsEmpty) {
  EXPECT_EQ(FaultOf("[Event \"Evening\"]\r\n[Dealer \"N\"]\r\n"), Told("File is empty"));
}

TEST(PbnReader, AFileWithoutBytesIsEmpty) { EXPECT_EQ(FaultOf(""), Told("File is empty")); }

TEST(PbnReader, ADealBeforeItsBoardIsAnIncorrectOrder) {
  EXPECT_EQ(FaultOf("% x\n[Dealer \"N\"]\n[Deal \"N:\"]\n"),
            Told("Incorrect order of tokens in line: 3"));
}

TEST(PbnReader, ASecondDealOfABoardIsAnIncorrectOrder) {
  EXPECT_EQ(FaultOf("[Board \"1\"]\n[Deal \"N:A\"]\n[Deal \"N:K\"]\n"),
            Told("Incorrect order of tokens in line: 3"));
}

TEST(PbnReader, TricksBeforeTheirDealAreAnIncorrectOrder) {
  EXPECT_EQ(FaultOf("[Board \"1\"]\n[DoubleDummyTricks \"11111111111111111111\"]\n"),
            Told("Incorrect order of tokens in line: 2"));
}

TEST(PbnReader, NineteenOrTwentyOneTricksAreAnIncorrectLength) {
  for (const char* tricks : {"1111111111111111111", "111111111111111111111", ""}) {
    EXPECT_EQ(FaultOf("[Board \"1\"]\n[Deal \"N:\"]\n[DoubleDummyTricks \"" + std::string(tricks) +
                      "\"]"),
              Told("Incorrect length of string in line: 3"));
  }
}

TEST(PbnReader, TricksAreCountedInCharactersAndTheLastFaultIsTold) {
  const std::string before = "[Board \"1\"]\n[Deal \"N:\"]\n[DoubleDummyTricks \"";
  EXPECT_EQ(FaultOf(before + "x111111111111111111e\"]"),
            Told("Unexpected character 'e' in line: 3"));
  EXPECT_EQ(FaultOf(before + "1111111111111111111\xC3\xA9\"]"),
            Told("Unexpected character '\xC3\xA9' in line: 3"));
}

TEST(PbnReader, TricksOfOtherProgramsBecomeLevels) {
  const auto set = SetOf("[Board \"1\"][Deal \"N:\"][DoubleDummyTricks \"01234567890ABCDabcd6\"]");
  // North 01234, South 56789, East 0ABCD, West abcd6; 0 to 6 make no level, capitals count.
  EXPECT_EQ(set->At(1).Tricks, (std::array<std::uint8_t, 21>{0, 0, 0, 0, 0, 0, 4, 5, 6, 7, 0,
                                                             0, 1, 2, 3, 4, 5, 6, 7, 0, 0}));
}

TEST(PbnReader, ASecondSetOfTricksReplacesTheFirst) {
  const auto set = SetOf(
      "[Board \"1\"][Deal \"N:\"][DoubleDummyTricks \"dddddddddddddddddddd\"]"
      "[DoubleDummyTricks \"11111111111111111111\"]");
  EXPECT_THAT(set->At(1).Tricks, Each(0));
}

TEST(PbnReader, ABoardNumberLiesBetween1And640) {
  for (const char* number : {"0", "641", "", "99999999999999999999", "000"}) {
    EXPECT_EQ(FaultOf("\n[Board \"" + std::string(number) + "\"]"),
              Told("Invalid board number in line: 2"))
        << number;
  }
  EXPECT_EQ(SetOf("[Board \"1\"]")->LastBoard, 1);
  EXPECT_EQ(SetOf("[Board \"640\"]")->FirstBoard, 640);
  EXPECT_EQ(SetOf("[Board \"007\"]")->FirstBoard, 7);
}

TEST(PbnReader, ABoardNumberIsDigitsOnly) {
  EXPECT_EQ(FaultOf("[Board \"12a4b\"]"), Told("Unexpected character 'a' in line: 1"));
  EXPECT_EQ(FaultOf("[Board \"-1\"]"), Told("Unexpected character '-' in line: 1"));
  EXPECT_EQ(FaultOf("[Board \" 1\"]"), Told("Unexpected character ' ' in line: 1"));
  EXPECT_EQ(FaultOf("[Board \"#\"]"), Told("Unexpected character '#' in line: 1"));
  EXPECT_EQ(FaultOf("[Board \"1\xC3\xA9\"]"), Told("Unexpected character '\xC3\xA9' in line: 1"));
}

TEST(PbnReader, ARepeatedBoardStartsAfresh) {
  const auto set = SetOf(
      "[Board \"1\"][Dealer \"W\"][Vulnerable \"All\"][Deal \"N:A\"]\n[Board \"1\"]\n"
      "[Deal \"E:A\"]");
  EXPECT_EQ(set->At(1).Dealer, 0);
  EXPECT_EQ(set->At(1).Vul, 0);
  EXPECT_EQ(set->At(1).Cards[1], kEast);
}

TEST(PbnReader, BoardsInBetweenStayEmpty) {
  const auto set = SetOf("[Board \"7\"]\n" + kSuitDeal + "\n[Board \"3\"]\n" + kSuitDeal);
  EXPECT_EQ(set->FirstBoard, 3);
  EXPECT_EQ(set->LastBoard, 7);
  EXPECT_EQ(set->Count(), 5);
  for (const int n : {4, 5, 6}) {
    EXPECT_EQ(set->At(n), Board{}) << n;
  }
  EXPECT_EQ(set->At(3).Status, Board::kComplete);
  EXPECT_EQ(set->At(7).Status, Board::kComplete);
}

TEST(PbnReader, DealersAreOneLetterOfEitherCase) {
  const std::string letters = "NESWnesw";
  for (std::size_t i = 0; i < letters.size(); ++i) {
    const auto set = SetOf("[Board \"2\"][Dealer \"" + letters.substr(i, 1) + "\"]");
    EXPECT_EQ(set->At(2).Dealer, i % 4 + 1);
  }
  for (const char* value : {"North", "X", "", "#", "NN"}) {
    EXPECT_EQ(FaultOf("[Board \"2\"]\n[Dealer \"" + std::string(value) + "\"]"),
              Told("Invalid string \"" + std::string(value) + "\" in line: 2"));
  }
}

TEST(PbnReader, VulnerabilitiesAreTheseWords) {
  const std::vector<std::vector<std::string>> words = {{"None", "Love", "-", "none", "love"},
                                                       {"NS", "ns"},
                                                       {"EW", "ew"},
                                                       {"All", "Both", "all", "both"}};
  for (std::size_t vul = 1; vul <= words.size(); ++vul) {
    for (const std::string& word : words[vul - 1]) {
      EXPECT_EQ(SetOf("[Board \"2\"][Vulnerable \"" + word + "\"]")->At(2).Vul, vul) << word;
    }
  }
  for (const char* value : {"NONE", "Ns", "N-S", "", "#", "alle"}) {
    EXPECT_EQ(FaultOf("[Board \"2\"]\n[Vulnerable \"" + std::string(value) + "\"]"),
              Told("Invalid string \"" + std::string(value) + "\" in line: 2"));
  }
}

TEST(PbnReader, AbsentDealerAndVulnerabilityStayZeroAndFollowTheNumber) {
  const auto set = SetOf("[Board \"6\"]");
  EXPECT_EQ(set->At(6).Dealer, 0);
  EXPECT_EQ(set->At(6).Vul, 0);
  EXPECT_EQ(BoardDealer(set->At(6), 6), kEast);
  EXPECT_EQ(BoardVul(set->At(6), 6), 3);
}

TEST(PbnReader, ADealerInFrontOfItsBoardGoesToTheBoardBefore) {
  const auto set = SetOf(
      "[Dealer \"W\"][Vulnerable \"EW\"][Board \"1\"][Dealer \"S\"][Vulnerable \"All\"]"
      "[Board \"2\"]");
  EXPECT_EQ(set->At(1).Dealer, kSouth);
  EXPECT_EQ(set->At(1).Vul, 4);
  EXPECT_EQ(set->At(2).Dealer, 0);
  EXPECT_EQ(set->At(2).Vul, 0);
}

TEST(PbnReader, ADealerBeforeAnyBoardMustStillBeOne) {
  EXPECT_EQ(FaultOf("[Dealer \"Q\"]"), Told("Invalid string \"Q\" in line: 1"));
}

TEST(PbnReader, TheLastEventTextThatIsNoRepeatMarkWins) {
  const auto set = SetOf(
      "[Event \"One\"][Site \"A\"][Date \"1\"]\n[Event \"#\"][Site \"##\"][Date \"\"]\n"
      "[Board \"1\"]\n[Event \"#Two\"][Site \"##B\"][Date \"###2\"]\n[Event \"#\"]");
  EXPECT_EQ(set->EventName, "Two");
  EXPECT_EQ(set->EventSite, "B");
  EXPECT_EQ(set->EventDate, "#2");
}

TEST(PbnReader, ARepeatMarkAloneLeavesTheEventTextAsItIs) {
  for (const char* mark : {"#", "##", ""}) {
    const std::string value = std::string(" \"") + mark + "\"]";
    const auto set = SetOf("[Event \"One\"][Site \"A\"][Date \"1\"]\n[Event" + value + "[Site" +
                           value + "[Date" + value + "[Board \"1\"]");
    EXPECT_EQ(set->EventName, "One") << mark;
    EXPECT_EQ(set->EventSite, "A") << mark;
    EXPECT_EQ(set->EventDate, "1") << mark;
  }
}

TEST(PbnReader, AnEventTextIsTakenWhole) {
  const std::string name(5000, 'x');
  EXPECT_EQ(SetOf("[Event \"" + name + "\"][Board \"1\"]")->EventName, name);
}

TEST(PbnReader, OnlyTheNamesLengthIsCompared) {
  const auto set = SetOf("[EventDate \"x\"][BoardX \"3\"][DealerName \"W\"]");
  EXPECT_EQ(set->EventName, "x");
  EXPECT_EQ(set->FirstBoard, 3);
  EXPECT_EQ(set->At(3).Dealer, kWest);
}

TEST(PbnReader, NamesAreCaseSensitive) {
  EXPECT_EQ(FaultOf("[board \"3\"]\n[BOARD \"3\"]"), Told("File is empty"));
}

TEST(PbnReader, WhatStandsBetweenBracketAndNameIsSkipped) {
  EXPECT_EQ(SetOf("x ] [ _12\"Board   3 \"4\" ; x ] y")->FirstBoard, 4);
  EXPECT_EQ(SetOf("[[Board \"5\"]")->FirstBoard, 5);
  EXPECT_EQ(SetOf("[@`{~\xC3\xA9 Board \"6\"]")->FirstBoard, 6);
}

TEST(PbnReader, SeveralTagsStandInOneLineBesideUnknownOnes) {
  const auto set = SetOf(
      "[West \"Ann\"] [Board \"1\"] [Contract \"3NT\"] [Dealer \"E\"] {[Play] [Vulnerable \"NS\"]");
  EXPECT_EQ(set->At(1).Dealer, kEast);
  EXPECT_EQ(set->At(1).Vul, 2);
}

TEST(PbnReader, WhatStandsBetweenAValueAndItsBracketIsSkipped) {
  const auto set = SetOf("[Board \"1\" [Dealer \"W\" x] [Vulnerable \"EW\"]");
  EXPECT_EQ(set->At(1).Dealer, 0);
  EXPECT_EQ(set->At(1).Vul, 3);
}

TEST(PbnReader, CommentsAreNotTreatedSpecially) {
  EXPECT_EQ(SetOf("% [Board \"9\"]")->FirstBoard, 9);
}

TEST(PbnReader, ATagWithoutAnOpeningQuoteIsAFault) {
  const std::string fault = Told("Expected character '\"' not found in line: 1");
  for (const char* line : {"[Board 1]", "[Board", "[Board ] \"1\"]", "[Board1"}) {
    EXPECT_EQ(FaultOf(line), fault) << line;
  }
}

TEST(PbnReader, ATagWithoutAClosingQuoteIsAFault) {
  const std::string fault = Told("Expected character '\"' not found in line: 1");
  for (const char* line : {"[Board \"1]", "[Board \"1", "[Board \"", "[Site \"a]b\"]"}) {
    EXPECT_EQ(FaultOf(line), fault) << line;
  }
}

TEST(PbnReader, ATagWithoutAClosingBracketIsAFaultBeforeItsValueCounts) {
  EXPECT_EQ(FaultOf("\n\n[Board \"0\""), Told("Expected character ']' not found in line: 3"));
  EXPECT_EQ(FaultOf("[Board \"0\" [Dealer \"N\""),
            Told("Expected character ']' not found in line: 1"));
}

TEST(PbnReader, ATagSplitOverTwoLinesIsNotRecognised) {
  EXPECT_EQ(FaultOf("[Board\n\"1\"]"), Told("Expected character '\"' not found in line: 1"));
  EXPECT_EQ(FaultOf("[\nBoard \"1\"]"), Told("File is empty"));
}

TEST(PbnReader, ABracketOrALetterAtTheLineEndIsNothing) {
  EXPECT_EQ(SetOf("[Board \"1\"][\n[E\n[Event \"x\"] [")->EventName, "x");
}

TEST(PbnReader, TheFirstFaultInTheFileIsTold) {
  EXPECT_EQ(FaultOf("[Board \"1\"][Dealer \"Q\"][Board \"x\"]\n[Deal"),
            Told("Invalid string \"Q\" in line: 1"));
}

TEST(PbnReader, LinesAreCountedByLineFeedsAlone) {
  EXPECT_EQ(FaultOf("a\rb\n\r\n[Board \"x\"]"), Told("Unexpected character 'x' in line: 3"));
}

TEST(PbnReader, NulAndTheOldEndOfFileMarkEndNothing) {
  const std::string text("[Event \"a\0b\"]\x1A\r\n[Board \"1\"]", 28);
  EXPECT_EQ(SetOf(text)->EventName, std::string("a\0b", 3));
}

TEST(PbnReader, AHugeLineIsScannedOnce) {
  // Sixteen million brackets would take hours if each were looked for from the start of the line.
  std::string text(16'000'000, '[');
  text += "Board \"1\"]";
  EXPECT_EQ(SetOf(text)->FirstBoard, 1);
  std::string tags;
  for (int i = 0; i < 200'000; ++i) tags += "[Play \"x\"] [Event \"y\"]";
  EXPECT_EQ(SetOf(tags + "[Board \"1\"]")->EventName, "y");
}

// The value of Deal.

std::string DealFault(const std::string& value) {
  return FaultOf("[Board \"1\"]\n[Deal \"" + value + "\"]");
}

Board DealOf(const std::string& value) {
  return SetOf("[Board \"1\"][Deal \"" + value + "\"]")->At(1);
}

TEST(PbnDeal, StartsWithAnyHandInEitherCase) {
  EXPECT_EQ(CardsOf(DealOf("S:..AKQ. - A.. .K")), "A... .K.. ..AKQ. ... ");
  EXPECT_EQ(CardsOf(DealOf("w:a 2 3 4")), "2... 3... 4... A... ");
}

TEST(PbnDeal, AnotherFirstCharacterIsUnexpected) {
  EXPECT_EQ(DealFault("X:A"), Told("Unexpected character 'X' in line: 2"));
  EXPECT_EQ(DealFault(":A"), Told("Unexpected character ':' in line: 2"));
  EXPECT_EQ(DealFault("#"), Told("Unexpected character '#' in line: 2"));
  EXPECT_EQ(DealFault("\xC3\xA9:A"), Told("Unexpected character '\xC3\xA9' in line: 2"));
  EXPECT_EQ(DealFault(""), Told("Unexpected character '' in line: 2"));
}

TEST(PbnDeal, TheSecondCharacterIsAColon) {
  EXPECT_EQ(DealFault("N A"), Told("Expected character ':' not found in line: 2"));
  EXPECT_EQ(DealFault("N"), Told("Expected character ':' not found in line: 2"));
}

TEST(PbnDeal, SpacesBetweenHandsDoNotCount) {
  EXPECT_EQ(CardsOf(DealOf("N:  A   K    Q   J   ")), "A... K... Q... J... ");
}

TEST(PbnDeal, AShortValueIsAnIncompleteBoard) {
  const Board board = DealOf("N:AK.Q");
  EXPECT_EQ(board.Status, Board::kIncomplete);
  EXPECT_EQ(board.HandCount[kNorth], 3);
  EXPECT_EQ(DealOf("N:").Status, Board::kEmpty);
  EXPECT_EQ(DealOf("N:- - - -").Status, Board::kEmpty);
  EXPECT_EQ(DealOf("N:... ... ... ...").Status, Board::kEmpty);
}

TEST(PbnDeal, ADashEndsItsHandByItself) {
  EXPECT_EQ(CardsOf(DealOf("N:-A -K")), "... A... ... K... ");
}

TEST(PbnDeal, ACardHeldTwiceIsADuplicateInItsOwnWords) {
  EXPECT_EQ(DealFault("N:AA"), Told("Duplicate card 'A' in line: 2"));
  EXPECT_EQ(DealFault("N:.K2 .K"), Told("Duplicate card 'K' in line: 2"));
  EXPECT_EQ(DealFault("N:T t"), Told("Duplicate card 't' in line: 2"));
}

TEST(PbnDeal, AFourthDotIsTooManySuits) {
  EXPECT_EQ(DealFault("N:A.K.Q.J."), Told("Too many suit changes in line: 2", "     "));
  EXPECT_EQ(DealFault("N:...."), Told("Too many suit changes in line: 2", "     "));
}

TEST(PbnDeal, ASixthHandIsTooManyAndTheFifthGoesToTheFirst) {
  EXPECT_EQ(CardsOf(DealOf("N:A - - - K")), "AK... ... ... ... ");
  EXPECT_EQ(DealFault("N:A - - - K Q"), Told("Too many hand changes in line: 2", "     "));
  EXPECT_EQ(DealFault("N:- - - - - -"), Told("Too many hand changes in line: 2", "     "));
}

TEST(PbnDeal, AnythingElseIsUnexpected) {
  EXPECT_EQ(DealFault("N:A10.K"), Told("Unexpected character '1' in line: 2"));
  EXPECT_EQ(DealFault("N:A- K"), Told("Unexpected character '-' in line: 2"));
  EXPECT_EQ(DealFault("N:A~"), Told("Unexpected character '~' in line: 2"));
  EXPECT_EQ(DealFault("N:A\tK"), Told("Unexpected character '\t' in line: 2"));
  EXPECT_EQ(DealFault("N:A\xE2\x99\xA0"), Told("Unexpected character '\xE2\x99\xA0' in line: 2"));
}

TEST(PbnDeal, TheFirstFaultOfAHandIsTold) {
  EXPECT_EQ(DealFault("N:AxA"), Told("Unexpected character 'x' in line: 2"));
}

}  // namespace
}  // namespace morvane::files
