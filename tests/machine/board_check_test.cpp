#include "machine/run_fixture.h"
#include "wire/board_labels.h"

namespace morvane::machine {
namespace {

using test::Bytes;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::SizeIs;

using CheckBoard = RunFixture;

TEST_F(CheckBoard, ARightLabelDealsAtOnce) {
  desk.Store.Set(kCheckBoard, "1");
  paper.Label = 15;
  Contact();
  run.cmdDeal();
  EXPECT_EQ(SentCodes().front(), 0x1B);
  EXPECT_EQ(bridge.Sent[0][1], 4);
  EXPECT_THAT(SentOf(0x1B), SizeIs(1));
  EXPECT_EQ(LastLine(), "  001 : 1,1 0,0,0,0 OK");
}

TEST_F(CheckBoard, AWrongLabelIsReadSixTimes100MsApart) {
  desk.Store.Set(kCheckBoard, "1");
  paper.Label = 23;
  view.Answers = {Cancel};
  Contact();
  const auto start = desk.Clock.Elapsed();
  run.cmdDeal();
  EXPECT_THAT(SentOf(0x1B), SizeIs(6));
  EXPECT_EQ(desk.Clock.Elapsed() - start, std::chrono::milliseconds(600));
  EXPECT_THAT(SentOf(0x98), IsEmpty());
  EXPECT_EQ(LastLine(), "  001 : 1,1 64,2,0 ");
  EXPECT_TRUE(run.Window().Controls.cmdDeal);
  desk.Loop.WaitMs(200);
  EXPECT_THAT(SentOf(0x19), Not(IsEmpty())) << "the polling goes on";
}

TEST_F(CheckBoard, DealingAnywayIsLoggedAndDealt) {
  desk.Store.Set(kCheckBoard, "1");
  view.Answers = {Third};
  Contact();
  run.cmdDeal();
  EXPECT_THAT(SentOf(0x98), SizeIs(1));
  EXPECT_EQ(LastLine(), "  001 : 1,1 64,0,2 0,0,0,0 OK");
  EXPECT_THAT(view.Errors, ElementsAre(::testing::EndsWith("|Error Code: 64")));
}

TEST_F(CheckBoard, TryAgainReadsFromTheBeginning) {
  desk.Store.Set(kCheckBoard, "1");
  paper.Label = 23;
  view.Answers = {[this](ErrorDialog& dialog) {
    paper.Label = 15;
    dialog.PressContinue();
  }};
  Contact();
  run.cmdDeal();
  EXPECT_THAT(SentOf(0x1B), SizeIs(7));
  EXPECT_EQ(LastLine(), "  001 : 1,1 64,2,1 0,0,0,0 OK");
  EXPECT_THAT(view.Errors, ElementsAre(::testing::EndsWith("|Error Code: 65")));
}

TEST_F(CheckBoard, ThePedalDealsTheWrongBoard) {
  desk.Store.Set(kCheckBoard, "1");
  paper.Label = 23;
  view.Answers = {[this](ErrorDialog&) { paper.Events = 8; }};
  Contact();
  run.cmdDeal();
  EXPECT_EQ(LastLine(), "  001 : 1,1 64,2,2 0,0,0,0 OK");
}

TEST_F(CheckBoard, ALinkLostInTheDialogIsNamedByTheDialogAndByTheNextPoll) {
  desk.Store.Set(kCheckBoard, "1");
  paper.Label = 23;
  view.Answers = {[this](ErrorDialog&) { paper.Powered = false; }};
  Contact();
  run.cmdDeal();
  EXPECT_THAT(desk.Ui.Boxes, SizeIs(1));
  desk.Loop.WaitMs(100);
  ASSERT_THAT(desk.Ui.Boxes, SizeIs(2));
  EXPECT_EQ(desk.Ui.Boxes[1].Text, desk.Prog.Texts.Msg048);
  EXPECT_TRUE(run.Closed());
}

TEST_F(CheckBoard, ClosingWhileTheLabelIsReadOpensNoDialog) {
  desk.Store.Set(kCheckBoard, "1");
  paper.Label = 23;
  Contact();
  desk.Loop.After(550, [this] { run.Exit(); });
  run.cmdDeal();
  EXPECT_THAT(view.Errors, IsEmpty());
  EXPECT_TRUE(run.Closed());
}

TEST_F(CheckBoard, AnotherSensorsValueIsNoLabel) {
  desk.Store.Set(kCheckBoard, "1");
  paper.Damage = [](int, const Bytes& plain, const Bytes& wire) {
    return plain[0] == 0x1B ? test::OnTheWire(test::Short({0x1B, 3, 15}), 21) : wire;
  };
  view.Answers = {Cancel};
  Contact();
  run.cmdDeal();
  EXPECT_EQ(LastLine(), "  001 : 1,1 64,0,0 ");
}

TEST_F(CheckBoard, ClosingBetweenTwoReadingsReadsNoMore) {
  desk.Store.Set(kCheckBoard, "1");
  paper.Label = 23;
  Contact();
  desk.Loop.After(50, [this] { run.Exit(); });
  run.cmdDeal();
  EXPECT_THAT(SentOf(0x1B), SizeIs(1));
  EXPECT_TRUE(run.Closed());
}

TEST_F(CheckBoard, QuittingWhileItAsksIsStoppedAndLoggedAsThat) {
  desk.Store.Set(kCheckBoard, "1");
  paper.Label = 23;
  Contact();
  view.Answers = {[this](ErrorDialog&) { desk.Loop.Quit(); }};
  run.cmdDeal();
  EXPECT_EQ(LastLine(), "  001 : 1,1 64,2,0 ");
  EXPECT_THAT(SentOf(0x98), IsEmpty());
}

TEST_F(CheckBoard, NobodyWalksOnWhileTheLabelIsRead) {
  desk.Store.Set(kCheckBoard, "1");
  paper.Label = 23;
  view.Answers = {Third};
  Contact();
  desk.Loop.After(250, [this] {
    run.Walk(BoardWalk::Step::kNext);
    run.LeaveSubfrom("2");
    run.cmdDeal();
  });
  run.cmdDeal();
  EXPECT_EQ(desk.Prog.Set.CurrentBoard, 1);
  EXPECT_EQ(LastLine(), "  001 : 1,1 64,2,2 0,0,0,0 OK");
}

TEST_F(CheckBoard, Board71NeverMatches) {
  desk.Store.Set(kCheckBoard, "1");
  test::FillSet(desk.Prog.Set, 71, 71);
  view.Answers = {Cancel};
  Contact();
  for (int label = 0; label < 256; ++label) {
    EXPECT_NE(wire::BoardLabelTable[static_cast<std::size_t>(label)], 71);
  }
  run.cmdDeal();
  EXPECT_EQ(LastLine(), "  071 : 1,1 64,0,0 ");
}

}  // namespace
}  // namespace morvane::machine
