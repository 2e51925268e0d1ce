#include "files/dge_records.h"

#include "files/record_desk.h"

namespace morvane::files {
namespace {

const Messages kTexts = InitMessages();

std::string FaultOf(const std::string& record, DgeMode mode) {
  Board board;
  return ParseDgeRecord(record, board, mode, kTexts);
}

/// The fault of a whole record with this hands text, which zero bytes fill up.
std::string FaultOfHands(const std::string& hands) {
  return FaultOf(hands + Zeros(128 - hands.size()), DgeMode::kWholeRecord);
}

std::string FaultOfLine(const std::string& line) { return FaultOf(line, DgeMode::kBreLine); }

/// The cards of a record that must be sound.
auto CardsOf(const std::string& record, DgeMode mode = DgeMode::kWholeRecord) {
  Board board;
  board.Cards.fill(4);
  board.Cards[0] = 0;
  EXPECT_EQ(ParseDgeRecord(record, board, mode, kTexts), "");
  return board.Cards;
}

std::string Unexpected(int position) {
  return Told("Unexpected charater at position:  " + std::to_string(position) + "  in record: ###");
}
std::string Illegal(int position) {
  return Told("Illegal card code at position: " + std::to_string(position) + "  in record: ###");
}
std::string Duplicate(int position) {
  return Told("Duplicate card at position: " + std::to_string(position) + "  in record: ###");
}

TEST(DgeRecord, GivesEachHandTheRanksBehindItsMarks) {
  EXPECT_EQ(CardsOf(DgeRecord(kSuitsDge)), test::SuitBoard(1).Cards);
  EXPECT_EQ(CardsOf(DgeRecord(kRoundDge)), test::RoundBoard(1).Cards);
  EXPECT_EQ(CardsOf(kRoundDge, DgeMode::kBreLine), test::RoundBoard(1).Cards);
  EXPECT_EQ(CardsOf(kRoundDge, DgeMode::kDupPart), test::RoundBoard(1).Cards);
}

TEST(DgeRecord, TheRanksOfASuitStandInAnyOrder) {
  EXPECT_EQ(CardsOf(DgeRecord("\006"
                              "23456789TJQKA" +
                              kSuitsDge.substr(14))),
            test::SuitBoard(1).Cards);
}

TEST(DgeRecord, WhatStandsBehindTheHandsOfAWholeOneIsNotLookedAt) {
  EXPECT_EQ(CardsOf(kSuitsDge + std::string(60, 'A')), test::SuitBoard(1).Cards);
}

TEST(DgeRecord, AWholeOneHas128Bytes) {
  for (const std::size_t length : {0U, 1U, 68U, 127U, 129U}) {
    EXPECT_EQ(FaultOf((DgeRecord(kSuitsDge) + "x").substr(0, length), DgeMode::kWholeRecord),
              Told("Incorrect record length = " + std::to_string(length) + "  in record: ###"));
  }
}

TEST(DgeRecord, TheLengthComesBeforeTheCards) {
  EXPECT_EQ(FaultOf("xx", DgeMode::kWholeRecord),
            Told("Incorrect record length = 2  in record: ###"));
}

TEST(DgeRecord, EachHandHasItsMarksInOrder) {
  EXPECT_EQ(FaultOfHands("\003"), Unexpected(1));
  EXPECT_EQ(FaultOfHands("\006\006"), Unexpected(2));
  EXPECT_EQ(FaultOfHands("\006A\004"), Unexpected(3));
  EXPECT_EQ(FaultOfHands("\006\003\004\006"), Unexpected(4));
  EXPECT_EQ(FaultOfHands("\006\003\004\005\003"), Unexpected(5));
}

TEST(DgeRecord, AFifthHandIsUnexpected) {
  const std::string marks = "\006\003\004\005\006\003\004\005\006\003\004\005\006\003\004\005";
  EXPECT_EQ(FaultOfHands(marks + "\006"), Unexpected(17));
  EXPECT_EQ(FaultOfLine(marks + "A\006"), Unexpected(18));
  EXPECT_EQ(FaultOfLine(marks), "");
}

TEST(DgeRecord, ARankBeforeTheFirstMarkIsIllegal) { EXPECT_EQ(FaultOfHands("A\006"), Illegal(1)); }

TEST(DgeRecord, AnyOtherByteIsIllegal) {
  EXPECT_EQ(FaultOfHands("\006a"), Illegal(2));
  EXPECT_EQ(FaultOfHands("\006"
                         "A10"),
            Illegal(3));
  EXPECT_EQ(FaultOfHands("\006A K"), Illegal(3));
  EXPECT_EQ(FaultOfHands("\006A\r"), Illegal(3));
  EXPECT_EQ(FaultOfHands("\006\002"), Illegal(2));
  EXPECT_EQ(FaultOfHands("\006\xC3\xA9"), Illegal(2));
}

TEST(DgeRecord, ACardThatIsHeldAlreadyIsADuplicate) {
  EXPECT_EQ(FaultOfHands("\006AKA"), Duplicate(4));
  EXPECT_EQ(FaultOfHands("\006AK\003\004\005\006K"), Duplicate(8));
}

TEST(DgeRecord, AWholeOneWithoutAllItsCardsMeetsTheZeroBytes) {
  // All but the Two of Clubs, at position 68.
  EXPECT_EQ(FaultOfHands(kSuitsDge.substr(0, 67)), Illegal(68));
}

TEST(DgeRecord, EachHandOfAWholeOneHas13Cards) {
  EXPECT_EQ(FaultOfHands("\006AKQJT98765432\003A\004\005"
                         "\006\003KQJT98765432\004\005"
                         "\006\003\004AKQJT98765432\005"
                         "\006\003\004\005AKQJT98765432"),
            Told("Incorrect hand card count: 14, 12, 13, 13  in record: ###"));
  EXPECT_EQ(FaultOfHands("\006AKQJT98765432\003AKQJT98765432\004AKQJT98765432\005AKQJT98765432"
                         "\006\003\004\005\006\003\004\005\006\003\004\005"),
            Told("Incorrect hand card count: 52, 0, 0, 0  in record: ###"));
}

TEST(DgeRecord, TheFirstFaultOfAWholeOneIsTold) {
  EXPECT_EQ(FaultOfHands("\006x\004AA"), Illegal(2));
  EXPECT_EQ(FaultOfHands("\006AA\004x"), Duplicate(3));
}

TEST(DgeText, MayHaveAnyNumberOfCards) {
  for (const DgeMode mode : {DgeMode::kBreLine, DgeMode::kDupPart}) {
    const auto cards = CardsOf(
        "\006A\003\004\005K\006\003"
        "2",
        mode);
    EXPECT_EQ(cards[1], kNorth);
    EXPECT_EQ(cards[41], kNorth);
    EXPECT_EQ(cards[26], kEast);
    EXPECT_EQ(std::count(cards.begin(), cards.end(), 0), 50);
    EXPECT_EQ(CardsOf("", mode), Board{}.Cards);
  }
}

TEST(DgeText, WhatStandsBehind68BytesIsWalkedToo) {
  EXPECT_EQ(FaultOfLine(kSuitsDge + "A"), Duplicate(69));
  EXPECT_EQ(FaultOfLine(kSuitsDge + "\006"), Unexpected(69));
  EXPECT_EQ(FaultOfLine(kSuitsDge + "x"), Illegal(69));
}

TEST(DgeText, AFaultBehind68BytesEndsTheWalk) {
  EXPECT_EQ(FaultOfLine(kSuitsDge + "x\006A"), Illegal(69));
  EXPECT_EQ(FaultOfLine(kSuitsDge + std::string(100'000, 'x')), Illegal(69));
}

TEST(DgeText, AFaultBehind68BytesReplacesAnEarlierOne) {
  const std::string faulty = "\006x" + std::string(66, '?');  // 68 bytes, an error at 2
  EXPECT_EQ(FaultOfLine(faulty), Illegal(2));
  EXPECT_EQ(FaultOfLine(faulty + "AKA\003"), Duplicate(71));
  EXPECT_EQ(FaultOfLine(faulty + "\004"), Unexpected(69));
  EXPECT_EQ(FaultOfLine(std::string(67, 'A') + "xx"), Illegal(69));
}

TEST(DgeText, AnEarlierFaultStandsWhenTheRestIsRight) {
  // After the error at 2 the walk goes on from 69 in North's spades.
  const std::string faulty = "\006x" + std::string(66, '?');
  EXPECT_EQ(FaultOfLine(faulty + "AK\003Q"), Illegal(2));
}

TEST(DgeText, AFifthHandDoesNotEndALongerLine) {
  const std::string marks = "\006\003\004\005\006\003\004\005\006\003\004\005\006\003\004\005";
  const std::string faulty = marks + "\006" + std::string(51, '?');  // 68 bytes, an error at 17
  EXPECT_EQ(FaultOfLine(faulty + "AKQ"), Unexpected(17));
  EXPECT_EQ(FaultOfLine(faulty + "AK\003"), Unexpected(71));
  EXPECT_EQ(FaultOfLine(faulty + "\006"), Unexpected(69));
}

TEST(DgeText, TheMarkOfAFifthHandBeginsItsSpadesAllTheSame) {
  // Position 18 is an error, at 69 the walk goes on in spades, of which North holds the Ace.
  const std::string faulty =
      "\006A\003\004\005\006\003\004\005\006\003\004\005\006\003\004\005\006" +
      std::string(50, '?');
  EXPECT_EQ(FaultOfLine(faulty + "K"), Unexpected(18));
  EXPECT_EQ(FaultOfLine(faulty + "A"), Duplicate(69));
}

TEST(DgeHands, AllFourMarksOfEachHandStandInAnIncompleteBoard) {
  EXPECT_EQ(FormatDgeHands(Board{}),
            "\006\003\004\005\006\003\004\005\006\003\004\005\006\003\004\005");
  Board board;
  board.Cards[13] = kEast;
  board.Cards[40] = kEast;
  board.Cards[52] = kWest;
  EXPECT_EQ(FormatDgeHands(board),
            "\006\003\004\005\006"
            "2\003\004\005A\006\003\004\005\006\003\004\005"
            "2");
}

TEST(DgeFile, HoldsARecordOf128BytesForEachBoard) {
  RecordDesk desk;
  desk.TwoBoards(1);
  const std::string bytes = desk.Saved("set.dge");
  EXPECT_EQ(bytes.size(), 256U);
  EXPECT_EQ(bytes, kSuitsDge + Zeros(60) + kRoundDge + Zeros(60));
}

TEST(DgeFile, ASetFromBoard5BeginsWithItAndLoadsFromBoard1) {
  RecordDesk desk;
  desk.TwoBoards(5);
  EXPECT_EQ(desk.Saved("set.dge"), DgeRecord(kSuitsDge) + DgeRecord(kRoundDge));
  EXPECT_TRUE(LoadFile(desk.Prog, desk.History, desk.Folder / "set.dge"));
  EXPECT_EQ(desk.Prog.Set.FirstBoard, 1);
  EXPECT_EQ(desk.Prog.Set.LastBoard, 2);
  EXPECT_EQ(desk.Prog.Set.At(1), test::SuitBoard(1));
  EXPECT_EQ(desk.Prog.Set.At(2), test::RoundBoard(2));
  EXPECT_TRUE(desk.Ui.Boxes.empty());
}

}  // namespace
}  // namespace morvane::files
