#include "machine/known_boards.h"
#include "machine/run_fixture.h"
#include "support/frame_list.h"

namespace morvane::machine {
namespace {

using std::chrono::milliseconds;
using test::Bytes;
using test::FramesAre;
using ::testing::ElementsAre;

const std::string kStart = "98 00 00 00 0B 24 00" + kBoard1;

/// Board 1, whose label is 15; 23 is that of board 2.
class FramesOfACheck : public RunFixture {
 protected:
  void SetUp() override {
    RunFixture::SetUp();
    desk.Store.Set(kCheckBoard, "1");
  }
  /// Notes when each frame goes out, in milliseconds from now.
  void NoteTimes() {
    const auto start = desk.Clock.Elapsed();
    paper.Damage = [this, start](int, const Bytes&, const Bytes& wire) {
      times.push_back((desk.Clock.Elapsed() - start) / milliseconds(1));
      return wire;
    };
  }
  std::vector<std::int64_t> times;
};

TEST_F(FramesOfACheck, TheRightLabelIsReadOnce) {
  paper.Label = 15;
  Contact();
  run.cmdDeal();
  EXPECT_TRUE(FramesAre(bridge.Sent, {kLabel, kStart, kThreePolls, kCardLog, kProbe}));
}

TEST_F(FramesOfACheck, SixReadingsAHundredMillisecondsApartThenCancelSendsNothing) {
  paper.Label = 23;
  view.Answers = {Cancel};
  Contact();
  NoteTimes();
  run.cmdDeal();
  EXPECT_TRUE(FramesAre(bridge.Sent, {kLabel + " x6"}));
  EXPECT_THAT(times, ElementsAre(0, 100, 200, 300, 400, 500));
  EXPECT_EQ(LastLine(), "  001 : 1,1 64,2,0 ");
  desk.Loop.WaitMs(150);
  EXPECT_TRUE(FramesAre(bridge.Sent, {kLabel + " x6", kPoll}));
}

TEST_F(FramesOfACheck, ALabelThatComesWithTheFourthReadingIsEnough) {
  Contact();
  int readings = 0;
  paper.Damage = [&](int, const Bytes& plain, const Bytes& wire) {
    if (plain[0] == 0x1B && ++readings == 3) paper.Label = 15;  // there for the fourth
    return wire;
  };
  run.cmdDeal();
  EXPECT_TRUE(FramesAre(bridge.Sent, {kLabel + " x4", kStart, kThreePolls, kCardLog, kProbe}));
  EXPECT_EQ(LastLine(), "  001 : 1,1 0,0,0,0 OK");
}

TEST_F(FramesOfACheck, TryAgainReadsSixTimesMore) {
  paper.Label = 23;
  view.Answers = {Continue, Cancel};
  Contact();
  NoteTimes();
  run.cmdDeal();
  EXPECT_TRUE(FramesAre(bridge.Sent, {kLabel + " x12"}));
  EXPECT_THAT(times, ElementsAre(0, 100, 200, 300, 400, 500, 600, 700, 800, 900, 1000, 1100));
  EXPECT_EQ(LastLine(), "  001 : 1,1 64,2,1 64,2,0 ");
}

TEST_F(FramesOfACheck, TheThirdButtonDealsWhateverIsInTheSlot) {
  paper.Label = 23;
  view.Answers = {Third};
  Contact();
  run.cmdDeal();
  EXPECT_TRUE(FramesAre(bridge.Sent, {kLabel + " x6", kStart, kThreePolls, kCardLog, kProbe}));
}

TEST_F(FramesOfACheck, TheDialogPollsOverTheReadingAndThePedalDealsTheWrongBoard) {
  paper.Label = 23;
  view.Answers = {[this](ErrorDialog&) { desk.Loop.After(150, [this] { paper.Events = 8; }); }};
  Contact();
  run.cmdDeal();
  // Byte 2 of the reading before is 0 and stays.
  EXPECT_TRUE(FramesAre(bridge.Sent, {kLabel + " x6", "19 00 00 00 00 00 00 x2", kStart,
                                      "19 02 .. .. .. .. ..", kPoll + " x2", kCardLog, kProbe}));
  EXPECT_EQ(LastLine(), "  001 : 1,1 64,2,2 0,0,0,0 OK");
}

TEST_F(FramesOfACheck, NoLabelIsReadWhereTheOptionIsOff) {
  desk.Store.Set(kCheckBoard, "0");
  Contact();
  run.cmdDeal();
  EXPECT_TRUE(FramesAre(bridge.Sent, {kStart, kThreePolls, kCardLog, kProbe}));
}

TEST_F(FramesOfACheck, AContinuedBoardIsNotCheckedAgain) {
  paper.Label = 15;
  paper.Codes = {30};
  view.Answers = {Continue};
  Contact();
  run.cmdDeal();
  EXPECT_TRUE(
      FramesAre(bridge.Sent, {kLabel, kStart, kThreePolls, kCardLog,
                              "98 01 00 00 0B 24 00" + kBoard1, kThreePolls, kCardLog, kProbe}));
}

TEST_F(FramesOfACheck, ThePressThatStartedABoardDoesNotAnswerForItsWrongLabel) {
  for (const Bytes& instead : {Bytes{}, test::OnTheWire(test::Short({0x18}), 21)}) {
    DealingRun fresh(desk.Prog, machine, memory);
    machine.Link.UsbHandle = 7;
    fresh.Open(view);
    desk.Loop.WaitMs(MachineRun::kFirstContactMs);
    bridge.Sent.clear();
    paper.Label = 23;
    paper.Events = 8;
    int polls = 0;
    paper.Damage = [&](int, const Bytes& plain, const Bytes& wire) {
      return plain[0] == 0x19 && ++polls == 2 ? instead : wire;  // the first of the dialog
    };
    view.Answers = {
        [this](ErrorDialog& dialog) { desk.Loop.After(450, [&dialog] { dialog.PressCancel(); }); }};
    desk.Loop.WaitMs(150);
    EXPECT_EQ(LastLine(), "  001 : 1,1 64,2,0 ");
    EXPECT_TRUE(SentOf(0x98).empty());
    fresh.Exit();
    paper.Damage = nullptr;
  }
}

}  // namespace
}  // namespace morvane::machine
