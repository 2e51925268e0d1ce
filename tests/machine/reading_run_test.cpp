#include "machine/reading_run.h"

#include "machine/run_fixture.h"
#include "model/tables.h"

namespace morvane::machine {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// A reading run over the empty boards 1 to 3 on the paper machine.
class Reading : public RunFixture {
 protected:
  ReadingRun reading{desk.Prog, machine, memory, [this] { ++saves; }};
  int saves = 0;

  void SetUp() override {
    RunFixture::SetUp();
    for (int n = 1; n <= 3; ++n) desk.Prog.Set.At(n) = NumberedBoard(n);
    // Spades lie in pocket 1, hearts in 2, diamonds in 3, clubs in 4.
    for (std::size_t place = 0; place < 52; ++place) {
      paper.Read[place] = static_cast<std::uint8_t>(place / 13 + 1);
    }
  }
  void Contact() {
    reading.Open(view);
    desk.Loop.WaitMs(MachineRun::kFirstContactMs);
    bridge.Sent.clear();
  }
  Board& At(int n) { return desk.Prog.Set.At(n); }
};

TEST_F(Reading, ABoardIsStoredLoggedAndOfferedForTheNext) {
  Contact();
  reading.cmdDeal();
  EXPECT_THAT(SentCodes(), ElementsAre(0x9C, 0x19, 0x19, 0x19, 0x1D, 0x20, 0x1A));
  EXPECT_EQ(At(1).Status, Board::kComplete);
  EXPECT_EQ(At(1).Cards[1], kSouth);
  EXPECT_EQ(At(1).Cards[14], kWest);
  EXPECT_EQ(At(1).Cards[27], kEast);
  EXPECT_EQ(At(1).Cards[40], kNorth);
  EXPECT_EQ(LastLine(),
            "  001 : 1,0 0,0,0,0 OK  ...AKQJT98765432 ..AKQJT98765432. AKQJT98765432... "
            ".AKQJT98765432.. ");
  EXPECT_TRUE(reading.Window().Controls.Deal_next);
  EXPECT_TRUE(reading.Window().Controls.cmdClear);
  EXPECT_EQ(desk.Prog.Set.BoardSetChanged, "1");
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
}

TEST_F(Reading, ClearAsksAndEmptiesTheBoard) {
  Contact();
  reading.cmdDeal();
  desk.Ui.Answers = {kNo, kYes};
  reading.cmdClear();
  EXPECT_EQ(At(1).Status, Board::kComplete);
  reading.cmdClear();
  EXPECT_EQ(At(1), NumberedBoard(1));
  EXPECT_FALSE(reading.Window().Controls.cmdClear);
  EXPECT_EQ(desk.Ui.Boxes.back().Title, "Clear Board");
}

TEST_F(Reading, TheNextButtonGoesOnPastTheEndAndTheSetGrows) {
  desk.Prog.Set.LastBoard = 1;
  Contact();
  reading.Walk(BoardWalk::Step::kFirst);
  ASSERT_TRUE(reading.Window().Controls.Deal_next);
  reading.Deal_next();
  EXPECT_EQ(desk.Prog.Set.LastBoard, 2);
  EXPECT_EQ(desk.Prog.Set.CurrentBoard, 2);
  EXPECT_EQ(At(1), NumberedBoard(1));
  EXPECT_EQ(At(2).Status, Board::kComplete);
}

TEST_F(Reading, ACardThatWasNotRecognisedLeavesTheBoardIncompleteAndIsTold) {
  paper.Read[12] = 0;  // the ace of spades
  Contact();
  reading.cmdDeal();
  EXPECT_EQ(At(1).Status, Board::kIncomplete);
  EXPECT_EQ(LastBox(),
            "      Not all cards were recognised: 51 of 52 cards of board 1 have been read.      "
            "\r\n\r\n      Please clear the board and read it again, or complete it in the editor."
            "      ");
}

TEST_F(Reading, AMachineThatStoppedShortIsNotLoggedOk) {
  paper.FinalCount = 12;
  Contact();
  reading.cmdDeal();
  EXPECT_EQ(desk.LogLines().at(desk.LogLines().size() - 2), "  001 : 1,0 0,0,0,0");
  EXPECT_EQ(reading.LastOutcome(), MachineRun::Outcome::kStopped);
}

TEST_F(Reading, CountsThatDisagreeWithAWholeBoardAreToldAsThat) {
  paper.FinalCount = 12;
  Contact();
  reading.cmdDeal();
  EXPECT_EQ(LastBox(),
            "      The cards of board 1 that have been read are not those that the machine has "
            "counted.      \r\n\r\n"
            "      Please put the cards together, clear the board and read it again.      ");
}

TEST_F(Reading, CardsThatAreMissingAreCounted) {
  paper.FinalCount = 12;
  for (const std::size_t place : {0U, 13U, 26U, 39U}) paper.Read[place] = 0;  // the Twos
  Contact();
  reading.cmdDeal();
  EXPECT_EQ(LastBox(),
            "      The machine has stopped without reading all cards: 48 of 52 cards of board 1 "
            "have been read.      \r\n\r\n"
            "      Please put the cards together, clear the board and read it again.      ");
}

TEST_F(Reading, ClearFollowsTheBoardThatARangeHasLedTo) {
  Contact();
  reading.cmdDeal();
  ASSERT_TRUE(reading.Window().Controls.cmdClear);
  reading.LeaveSubfrom("2");
  ASSERT_EQ(desk.Prog.Set.CurrentBoard, 2);
  EXPECT_FALSE(reading.Window().Controls.cmdClear);
  reading.LeaveSubfrom("1");
  reading.LeaveSubto("1");
  ASSERT_EQ(desk.Prog.Set.CurrentBoard, 1);
  EXPECT_TRUE(reading.Window().Controls.cmdClear);
}

TEST_F(Reading, ARefusedNextBoardHasTheControlsOfItsPlace) {
  paper.Minor = 0x80;  // too old for Swedish cards
  Contact();
  reading.cmdDeal();
  reading.Change(&RunOptions::SetNational, 6);
  reading.Deal_next();
  ASSERT_THAT(desk.Ui.Boxes, ::testing::SizeIs(1));
  ASSERT_EQ(desk.Prog.Set.CurrentBoard, 2);
  const RunControls& now = reading.Window().Controls;
  EXPECT_TRUE(now.cmdFirst && now.cmdPrev && now.cmdNext && now.cmdLast);
  EXPECT_FALSE(now.cmdClear);
}

}  // namespace
}  // namespace morvane::machine
