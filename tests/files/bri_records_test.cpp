#include "files/bri_records.h"

#include "files/record_desk.h"

namespace morvane::files {
namespace {

using ::testing::Each;
using ::testing::ElementsAre;

const Messages kTexts = InitMessages();

std::string FaultOf(const std::string& record, BriMode mode = BriMode::kWholeRecord) {
  Board board;
  return ParseBriRecord(record, board, mode, kTexts);
}

/// The fault of a whole record whose hands begin with `start`.
std::string FaultOfHands(const std::string& start) {
  return FaultOf(BriRecord(start + kSuitsBri.substr(start.size())));
}

/// The cards of a record that must be sound.
auto CardsOf(const std::string& record, BriMode mode = BriMode::kWholeRecord) {
  Board board;
  board.Cards.fill(4);
  board.Cards[0] = 0;
  EXPECT_EQ(ParseBriRecord(record, board, mode, kTexts), "");
  return board.Cards;
}

TEST(BriRecord, NamesThreeHandsAndTheRestIsWests) {
  EXPECT_EQ(CardsOf(BriRecord(kSuitsBri)), test::SuitBoard(1).Cards);
  EXPECT_EQ(CardsOf(BriRecord(kRoundBri)), test::RoundBoard(1).Cards);
  EXPECT_EQ(CardsOf(kRoundBri, BriMode::kDupPart), test::RoundBoard(1).Cards);
}

TEST(BriRecord, TheCardsOfAHandStandInAnyOrder) {
  EXPECT_EQ(CardsOf(BriRecord("13020304050607080910111201"
                              "14151617181920212223242526"
                              "39383736353433323130292827")),
            test::SuitBoard(1).Cards);
}

TEST(BriRecord, WhatStandsBehindTheHandsIsNotLookedAt) {
  EXPECT_EQ(CardsOf(kSuitsBri + std::string(50, 'x')), test::SuitBoard(1).Cards);
}

TEST(BriRecord, HasItsLengthInEachMode) {
  for (const std::size_t length : {0U, 1U, 77U, 78U, 127U, 129U}) {
    EXPECT_EQ(FaultOf((BriRecord(kSuitsBri) + "x").substr(0, length)),
              Told("Incorrect record length = " + std::to_string(length) + "  in record: ###"));
  }
  for (const std::size_t length : {0U, 77U, 79U, 128U}) {
    EXPECT_EQ(FaultOf(BriRecord(kSuitsBri).substr(0, length), BriMode::kDupPart),
              Told("Incorrect record length = " + std::to_string(length) + "  in record: ###"));
  }
}

TEST(BriRecord, TheLengthComesBeforeTheCards) {
  EXPECT_EQ(FaultOf("xx"), Told("Incorrect record length = 2  in record: ###"));
}

TEST(BriRecord, APairThatIsNoTwoDigitsIsShown) {
  EXPECT_EQ(FaultOfHands("x1"), Told("Invalid character: x1  in record: ###"));
  EXPECT_EQ(FaultOfHands("011x"), Told("Invalid character: 1x  in record: ###"));
  EXPECT_EQ(FaultOfHands(" 1"), Told("Invalid character:  1  in record: ###"));
  EXPECT_EQ(FaultOfHands("1 "), Told("Invalid character: 1   in record: ###"));
  EXPECT_EQ(FaultOfHands("-1"), Told("Invalid character: -1  in record: ###"));
  EXPECT_EQ(FaultOfHands(kSuitsBri.substr(0, 76) + "3:"),
            Told("Invalid character: 3:  in record: ###"));
}

TEST(BriRecord, EachByteOfAnInvalidPairIsShownAsOneCharacter) {
  EXPECT_EQ(FaultOfHands("\xC3\xA9"), Told("Invalid character: \xC3\x83\xC2\xA9  in record: ###"));
  EXPECT_EQ(FaultOfHands(Zeros(2)), Told("Invalid character: " + Zeros(2) + "  in record: ###"));
}

TEST(BriRecord, APairOf53OrMoreIsAnIncorrectCardValue) {
  EXPECT_EQ(FaultOfHands("53"), Told("Incorrect card value: 53  in record: ###"));
  EXPECT_EQ(FaultOfHands("0199"), Told("Incorrect card value: 99  in record: ###"));
}

TEST(BriRecord, APairOf00IsAnIncorrectCardValue) {
  EXPECT_EQ(FaultOfHands("00"), Told("Incorrect card value: 00  in record: ###"));
}

TEST(BriRecord, ACardNamedTwiceIsADuplicate) {
  EXPECT_EQ(FaultOfHands("0101"), Told("Duplicate card value: 01  in record: ###"));
  EXPECT_EQ(FaultOfHands(kSuitsBri.substr(0, 76) + "13"),
            Told("Duplicate card value: 13  in record: ###"));
}

TEST(BriRecord, TheFirstFaultIsTold) {
  EXPECT_EQ(FaultOfHands("0153xx01"), Told("Incorrect card value: 53  in record: ###"));
  EXPECT_EQ(FaultOfHands("0101xx53"), Told("Duplicate card value: 01  in record: ###"));
  EXPECT_EQ(FaultOfHands("9x53"), Told("Invalid character: 9x  in record: ###"));
}

TEST(BriRecord, AfterAFaultTheCardsNotYetNamedAreWestsToo) {
  Board board;
  EXPECT_NE(ParseBriRecord("short", board, BriMode::kWholeRecord, kTexts), "");
  EXPECT_EQ(board.Cards[0], 0);
  EXPECT_THAT(std::vector<int>(board.Cards.begin() + 1, board.Cards.end()), Each(kWest));

  EXPECT_NE(ParseBriRecord(BriRecord("0102xx" + kSuitsBri.substr(6)), board, BriMode::kWholeRecord,
                           kTexts),
            "");
  EXPECT_EQ(board.Cards[2], kNorth);
  EXPECT_EQ(board.Cards[3], kWest);
}

TEST(BriFile, HoldsARecordOf128BytesForEachBoard) {
  RecordDesk desk;
  desk.TwoBoards(1);
  const std::string bytes = desk.Saved("set.bri");
  EXPECT_EQ(bytes.size(), 256U);
  EXPECT_EQ(bytes, kSuitsBri + "                                " + Zeros(18) + kRoundBri +
                       "                                " + Zeros(18));
}

TEST(BriFile, TheRecordsOfTheBoardsBelowTheFirstAreZeroBytes) {
  RecordDesk desk;
  desk.TwoBoards(5);
  EXPECT_EQ(desk.Saved("set.bri"), Zeros(512) + BriRecord(kSuitsBri) + BriRecord(kRoundBri));
}

TEST(BriFile, ASetFromBoard5DoesNotLoadAgain) {
  RecordDesk desk;
  desk.TwoBoards(5);
  EXPECT_TRUE(SaveFile(desk.Prog, desk.History, desk.Folder / "set.bri"));
  EXPECT_FALSE(LoadFile(desk.Prog, desk.History, desk.Folder / "set.bri"));
  EXPECT_THAT(desk.Ui.Boxes,
              ElementsAre(LoadError(Told("Invalid character: " + Zeros(2) + "  in record: 1"))));
  EXPECT_FALSE(desk.Prog.Set.Exists());
}

TEST(BriFile, LoadsWithNumbersDealersAndVulnerabilitiesByPosition) {
  RecordDesk desk;
  EXPECT_TRUE(desk.Load("set.bri", BriRecord(kSuitsBri) + BriRecord(kRoundBri)));
  EXPECT_EQ(desk.Prog.Set.FirstBoard, 1);
  EXPECT_EQ(desk.Prog.Set.LastBoard, 2);
  EXPECT_EQ(desk.Prog.Set.At(1), test::SuitBoard(1));
  EXPECT_EQ(desk.Prog.Set.At(2), test::RoundBoard(2));
}

}  // namespace
}  // namespace morvane::files
