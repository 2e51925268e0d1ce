#include "machine/known_boards.h"
#include "machine/read_and_sort_fixture.h"
#include "support/frame_list.h"

namespace morvane::machine {
namespace {

using test::Bytes;
using test::FramesAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

using FramesOfARead = ReadFixture;

// Where each card of a pack is expected that was dealt by hand: from the dealer's pocket on round
// the table, 1 South, 3 East, 4 North, 2 West. Board 1 has North as its dealer, 2 East, 3 South, 4
// West. Behind the 52 places nothing has been set.
const std::string kTurn1 = " | 4213421342134 2134213421342 1342134213421 3421342134213 0";
const std::string kTurn2 = " | 3421342134213 4213421342134 2134213421342 1342134213421 0";
const std::string kTurn3 = " | 1342134213421 3421342134213 4213421342134 2134213421342 0";
const std::string kTurn4 = " | 2134213421342 1342134213421 3421342134213 4213421342134 0";
/// A played board, hand upon hand; the last hand has a place more than it has cards.
const std::string kPlayed = " | 1111111111111 2222222222222 3333333333333 44444444444444 0";

const std::string kStart = "9C 00 00 00 0B 24 00";
const std::string kGoOnFrame = "9C 01 00 00 0B 24 00";
const std::string kFetchBoard = "1D 00 .. .. .. .. ..";
const std::string kBreakFrame = "19 01 .. .. .. .. ..";

TEST_F(FramesOfARead, ABoardIsFetchedBeforeItsCardLog) {
  Contact();
  reading.cmdDeal();
  EXPECT_TRUE(
      FramesAre(bridge.Sent, {kStart + kTurn1, kThreePolls, kFetchBoard, kCardLog, kProbe}));
  EXPECT_EQ(LastLine(), "  001 : 1,0 0,0,0,0 OK  " + kReadText);
}

TEST_F(FramesOfARead, TheTurnBeginsWithTheDealerOfEachBoard) {
  desk.Prog.Set.LastBoard = 4;
  At(4) = NumberedBoard(4);
  desk.Ui.Default = kNo;
  Contact();
  reading.cmdDeal();
  for (int i = 0; i < 3; ++i) reading.Deal_next();
  EXPECT_TRUE(
      FramesAre(SentOf(0x9C), {kStart + kTurn1, "9C 00 00 01 3D 56 00" + kTurn2,
                               "9C 00 00 02 6F 88 00" + kTurn3, "9C 00 00 03 A1 BA 00" + kTurn4}));
}

TEST_F(FramesOfARead, APlayedBoardHas53PlacesOfWhichTheLastStays) {
  Contact();
  reading.Change(&RunOptions::SetReadMode, int{RunOptions::kPlayedBoards});
  reading.cmdDeal();
  reading.Change(&RunOptions::SetReadMode, int{RunOptions::kSimulateDealing});
  reading.Deal_next();
  // What no row of a frame names keeps what it was: the place behind the list too.
  std::string stays = kTurn2;
  stays.back() = '4';
  EXPECT_TRUE(FramesAre(SentOf(0x9C), {kStart + kPlayed, "9C 00 00 01 3D 56 00" + stays}));
}

TEST_F(FramesOfARead, TheCardsStandInBytes2And6) {
  desk.Store.Set(kNational, "6");
  desk.Store.Set(kCardType, "1");
  desk.Store.Set(kThreshold, "2");
  desk.Store.Set(kCardIndex, "2");
  Contact();
  reading.cmdDeal();
  EXPECT_TRUE(FramesAre(SentOf(0x9C), {"9C 00 67 00 0B 24 06" + kTurn1}));
}

TEST_F(FramesOfARead, ContinueFetchesTheBoardAgainBehindTheRest) {
  for (const int mode : {int{RunOptions::kSimulateDealing}, int{RunOptions::kPlayedBoards}}) {
    SCOPED_TRACE(mode);
    ReadingRun again(desk.Prog, machine, memory, nullptr);
    machine.Link.UsbHandle = 7;
    machine.Link.TxFrame = {};
    At(1) = NumberedBoard(1);
    paper.Codes = {25};
    view.Answers = {[this](ErrorDialog& dialog) {
      desk.Loop.After(150, [&dialog] { dialog.PressContinue(); });
    }};
    Contact(again);
    again.Change(&RunOptions::SetReadMode, mode);
    again.cmdDeal();
    const std::string& list = mode == 0 ? kTurn1 : kPlayed;
    EXPECT_TRUE(
        FramesAre(bridge.Sent, {kStart + list, kThreePolls, kFetchBoard, kCardLog, kDialogPoll,
                                kGoOnFrame + list, kThreePolls, kFetchBoard, kCardLog, kProbe}));
    EXPECT_EQ(LastLine(), "  001 : 1,0 0,0,0,0 25 OK  " + kReadText);
    again.Exit();
  }
}

TEST_F(FramesOfARead, ABreakThatIsCancelledLeavesWhatWasRead) {
  paper.BusyPolls = 10;
  std::fill(paper.Read.begin() + 20, paper.Read.end(), std::uint8_t{0});
  view.Answers = {Cancel};
  Contact();
  desk.Loop.OnPump = [this] {
    if (SentOf(0x19).size() == 2) reading.cmdBreak();
  };
  reading.cmdDeal();
  EXPECT_TRUE(FramesAre(
      bridge.Sent, {kStart + kTurn1, kPoll + " x2", kBreakFrame, kFetchBoard, kCardLog, kProbe}));
  EXPECT_EQ(LastLine(), "  001 : 1,0 0,0,0,0 57");
  EXPECT_EQ(At(1).Status, Board::kIncomplete);
  EXPECT_TRUE(reading.Window().Controls.cmdClear);
  EXPECT_FALSE(reading.Window().Controls.Deal_next);
}

TEST_F(FramesOfARead, AfterClearingABoardIsReadAgain) {
  view.Answers = {Cancel};
  paper.Codes = {54};
  Contact();
  reading.cmdDeal();
  desk.Ui.Answers = {kYes};
  reading.cmdClear();
  EXPECT_EQ(LastBox(), desk.Prog.Texts.Msg052);
  bridge.Sent.clear();
  reading.cmdDeal();
  // What came behind the question is acknowledged.
  EXPECT_TRUE(FramesAre(bridge.Sent, {"9C 00 00 01 3D 56 00" + kTurn1, "19 06 .. .. .. .. ..",
                                      kPoll + " x2", kFetchBoard, kCardLog, kProbe}));
  EXPECT_EQ(At(1).Status, Board::kComplete);
}

TEST_F(FramesOfARead, ACompleteOrHalfFullBoardIsRefusedWithNothingSent) {
  Contact();
  for (const std::size_t cards : {52U, 1U}) {
    At(1) = NumberedBoard(1);
    for (std::size_t card = 1; card <= cards; ++card) {
      At(1).Cards[card] = static_cast<std::uint8_t>((card - 1) / 13 + 1);
    }
    AnalyzeBoard(At(1));
    desk.Ui.Boxes.clear();
    reading.cmdDeal();
    ASSERT_THAT(desk.Ui.Boxes, SizeIs(1));
    EXPECT_EQ(LastBox(), desk.Prog.Texts.Msg054);
    EXPECT_THAT(LastBox(), ::testing::HasSubstr("Board not empty - cannot read this board."));
    EXPECT_EQ(desk.Ui.Boxes[0].Title, "Reading Error");
    EXPECT_THAT(bridge.Sent, IsEmpty());
  }
}

TEST_F(FramesOfARead, ACardReportedAs0StaysWithNobody) {
  paper.Read[0] = 0;  // the Two of Spades
  Contact();
  reading.cmdDeal();
  EXPECT_EQ(At(1).Cards[13], 0);
  EXPECT_EQ(At(1).Status, Board::kIncomplete);
  EXPECT_EQ(LastLine().find("  001 : 1,0 0,0,0,0 OK"), std::string::npos) << "a box came behind";
  EXPECT_THAT(desk.LogLines(), ::testing::Contains("  001 : 1,0 0,0,0,0 OK  ...AKQJT98765432 "
                                                   "..AKQJT98765432. AKQJT9876543... "
                                                   ".AKQJT98765432.. "));
}

TEST_F(FramesOfARead, TheEndOfTheSetAsksAndSavesAndAcknowledgesWhatCame) {
  desk.Prog.Set.LastBoard = 1;
  desk.Ui.Answers = {kYes};
  Contact();
  desk.Ui.OnBox = [this] {
    bridge.Sent.clear();
    paper.Events = 8 | 16;
    EXPECT_EQ(saves, 0) << "not before the answer";
  };
  reading.cmdDeal();
  EXPECT_EQ(LastBox(), desk.Prog.Texts.Msg061);
  EXPECT_THAT(LastBox(), ::testing::HasSubstr("succesfully dealt last board"));
  EXPECT_EQ(desk.Ui.Boxes.back().Flags, kYesNoQuestion);
  EXPECT_EQ(saves, 1);
  desk.Loop.WaitMs(250);
  EXPECT_TRUE(FramesAre(bridge.Sent, {"19 06 .. .. .. .. ..", kPoll}));
}

TEST_F(FramesOfARead, NoSavesNothing) {
  desk.Prog.Set.LastBoard = 1;
  desk.Ui.Answers = {kNo};
  Contact();
  reading.cmdDeal();
  EXPECT_EQ(saves, 0);
}

TEST_F(FramesOfARead, DealNextGoesOnPastTheEndOfTheRange) {
  desk.Store.Set(kDealSub, "1");
  memory = {1, 1, 0, ""};
  Contact();
  reading.Walk(BoardWalk::Step::kFirst);  // arrives at the last one of the range
  reading.Deal_next();
  EXPECT_EQ(memory.RunLast, 2);
  EXPECT_EQ(desk.Prog.Set.LastBoard, 3) << "the set had that board";
  EXPECT_TRUE(FramesAre(SentOf(0x9C), {kStart + kTurn2}));
}

TEST_F(FramesOfARead, ThePedalReadsTheNextBoard) {
  Contact();
  reading.cmdDeal();
  bridge.Sent.clear();
  paper.Events = 8;
  desk.Loop.WaitMs(100);
  EXPECT_TRUE(
      FramesAre(bridge.Sent, {kPoll, "9C 00 00 01 3D 56 00" + kTurn2, "19 02 .. .. .. .. ..",
                              kPoll + " x2", kFetchBoard, kCardLog, kProbe}));
}

TEST_F(FramesOfARead, ACheckedBoardIsReadBehindItsLabel) {
  desk.Store.Set(kCheckBoard, "1");
  paper.Label = 15;
  Contact();
  reading.cmdDeal();
  EXPECT_TRUE(FramesAre(bridge.Sent,
                        {kLabel, kStart + kTurn1, kThreePolls, kFetchBoard, kCardLog, kProbe}));
}

}  // namespace
}  // namespace morvane::machine
