#include "files/deal305_records.h"

#include "files/record_desk.h"

namespace morvane::files {
namespace {

using ::testing::ElementsAre;

const Messages kTexts = InitMessages();

std::string FaultOf(const std::string& record) {
  Board board;
  return ParseDeal305Record(record, board, kTexts);
}

/// The cards of a record that must be sound.
auto CardsOf(const std::string& record) {
  Board board;
  board.Cards.fill(4);
  board.Cards[0] = 0;
  EXPECT_EQ(ParseDeal305Record(record, board, kTexts), "");
  return board.Cards;
}

TEST(Deal305Record, TellsTheHolderOfEachCard) {
  EXPECT_EQ(CardsOf(kSuitsDeal305), test::SuitBoard(1).Cards);
  EXPECT_EQ(CardsOf(kRoundDeal305), test::RoundBoard(1).Cards);
}

TEST(Deal305Record, ItsLastTwoBytesAreNotLookedAt) {
  EXPECT_EQ(CardsOf(kRoundDeal305.substr(0, 52) + "\x1A" + Zeros(1)), test::RoundBoard(1).Cards);
}

TEST(Deal305Record, Has54Bytes) {
  for (const std::size_t length : {0U, 1U, 52U, 53U, 55U}) {
    EXPECT_EQ(FaultOf((kRoundDeal305 + "0").substr(0, length)),
              Told("Incorrect record length = " + std::to_string(length) + "  in record: ###"));
  }
  EXPECT_EQ(FaultOf("4"), Told("Incorrect record length = 1  in record: ###"));
}

TEST(Deal305Record, AnInvalidCharacterIsShownWithTheOneBehindIt) {
  EXPECT_EQ(FaultOf("4" + kRoundDeal305.substr(1)), Told("Invalid character: 41  in record: ###"));
  EXPECT_EQ(FaultOf("01 x" + kRoundDeal305.substr(4)),
            Told("Invalid character:  x  in record: ###"));
  EXPECT_EQ(FaultOf("\xE9" + kRoundDeal305.substr(1)), Told("Invalid character: \xC3\xA9"
                                                            "1  in record: ###"));
}

TEST(Deal305Record, BehindTheLastCardStandsTheLineEnd) {
  EXPECT_EQ(FaultOf(kRoundDeal305.substr(0, 51) + "4\r\n"),
            Told("Invalid character: 4\r  in record: ###"));
}

TEST(Deal305Record, TheFirstFaultIsTold) {
  EXPECT_EQ(FaultOf("0x5" + kRoundDeal305.substr(3)),
            Told("Invalid character: x5  in record: ###"));
}

TEST(Deal305Record, AFaultLeavesNoCardsOfTheBoardBefore) {
  Board board = test::SuitBoard(1);
  EXPECT_NE(ParseDeal305Record("short", board, kTexts), "");
  EXPECT_EQ(board.Cards, Board{}.Cards);
}

TEST(Deal305Record, ThirteenCardsForEachHandAreNotAskedFor) {
  RecordDesk desk;
  EXPECT_TRUE(desk.Load("set.all", std::string(52, '0') + "\r\n"));
  EXPECT_EQ(desk.Prog.Set.At(1).HandCount[kNorth], 52);
  EXPECT_EQ(desk.Prog.Set.At(1).Status, Board::kIncomplete);
}

TEST(Deal305File, HoldsARecordOf54BytesForEachBoard) {
  RecordDesk desk;
  desk.TwoBoards(1);
  EXPECT_EQ(desk.Saved("set.all"), kSuitsDeal305 + kRoundDeal305);
}

TEST(Deal305File, TheRecordsOfTheBoardsBelowTheFirstAreZeroBytes) {
  RecordDesk desk;
  desk.TwoBoards(5);
  EXPECT_EQ(desk.Saved("set.all"), Zeros(4 * 54) + kSuitsDeal305 + kRoundDeal305);
  EXPECT_FALSE(LoadFile(desk.Prog, desk.History, desk.Folder / "set.all"));
  EXPECT_THAT(desk.Ui.Boxes,
              ElementsAre(LoadError(Told("Invalid character: " + Zeros(2) + "  in record: 1"))));
}

TEST(Deal305File, LoadsUnderTheExtensionAll) {
  RecordDesk desk;
  EXPECT_TRUE(desk.Load("SET.ALL", kSuitsDeal305 + kRoundDeal305));
  EXPECT_EQ(desk.Prog.Set.LastBoard, 2);
  EXPECT_EQ(desk.Prog.Set.At(1), test::SuitBoard(1));
  EXPECT_EQ(desk.Prog.Set.At(2), test::RoundBoard(2));
}

}  // namespace
}  // namespace morvane::files
