#include "machine/run_fixture.h"
#include "support/harm.h"

namespace morvane::machine {
namespace {

using test::Bytes;
using test::Harm;
using test::Harmed;
using ::testing::IsEmpty;
using ::testing::Not;

using FaultSweep = RunFixture;

TEST_F(FaultSweep, AReplySpoiledOnceDoesNoHarmTwiceItIsTheLostLink) {
  // The exchanges of a good board: start, three polls, card log, probe.
  constexpr int kExchanges = 6;
  for (const Harm harm : {Harm::kLost, Harm::kCorrupted, Harm::kCut}) {
    for (int target = 0; target < kExchanges; ++target) {
      for (const int times : {1, 2}) {
        SCOPED_TRACE("harm " + std::to_string(static_cast<int>(harm)) + " exchange " +
                     std::to_string(target) + " times " + std::to_string(times));
        RunMemory freshMemory;
        RecordingView freshView(desk);
        DealingRun freshRun(desk.Prog, machine, freshMemory);
        machine.Link.UsbHandle = 7;
        paper.Damage = nullptr;
        desk.Ui.Boxes.clear();
        freshRun.Open(freshView);
        desk.Loop.WaitMs(DealingRun::kFirstContactMs);
        bridge.Sent.clear();
        paper.Exchanges = 0;
        paper.Damage = [&](int n, const Bytes&, const Bytes& wire) {
          return n >= target && n < target + times ? Harmed(harm, wire) : wire;
        };
        freshRun.cmdDeal();
        if (times == 1) {
          EXPECT_EQ(LastLine(), "  001 : 1,0 0,0,0,0 OK");
          EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
          EXPECT_EQ(bridge.Sent.at(static_cast<std::size_t>(target) + 1)[0],
                    bridge.Sent.at(static_cast<std::size_t>(target))[0]);
        } else {
          EXPECT_EQ(LastBox(), desk.Prog.Texts.Msg048);
          EXPECT_THAT(LastLine(), Not(::testing::EndsWith("OK")));
          EXPECT_EQ(freshRun.LastOutcome(), DealingRun::Outcome::kLinkLost);
          EXPECT_TRUE(freshRun.Closed());
        }
        if (!freshRun.Closed()) freshRun.Exit();
      }
    }
  }
}

TEST_F(FaultSweep, ACheckedAndContinuedBoardToo) {
  // Label, start, three polls, card log, start again, three polls, card log, probe.
  constexpr int kExchanges = 12;
  desk.Store.Set(kCheckBoard, "1");
  paper.Label = 15;
  for (int target = 0; target < kExchanges; ++target) {
    for (const int times : {1, 2}) {
      SCOPED_TRACE("exchange " + std::to_string(target) + " times " + std::to_string(times));
      RunMemory freshMemory;
      RecordingView freshView(desk);
      DealingRun freshRun(desk.Prog, machine, freshMemory);
      machine.Link.UsbHandle = 7;
      paper.Damage = nullptr;
      paper.Codes = {30};
      freshView.Answers = {Continue};
      desk.Ui.Boxes.clear();
      freshRun.Open(freshView);
      desk.Loop.WaitMs(DealingRun::kFirstContactMs);
      paper.Exchanges = 0;
      paper.Damage = [&](int n, const Bytes&, const Bytes& wire) {
        return n >= target && n < target + times ? Bytes{} : wire;
      };
      freshRun.cmdDeal();
      if (times == 1) {
        EXPECT_EQ(LastLine(), "  001 : 1,1 0,0,0,0 30 OK");
        EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
      } else {
        EXPECT_EQ(LastBox(), desk.Prog.Texts.Msg048);
        EXPECT_THAT(LastLine(), Not(::testing::EndsWith("OK")));
      }
      EXPECT_EQ(freshRun.Closed(), times == 2);
      if (!freshRun.Closed()) freshRun.Exit();
    }
  }
}

TEST_F(FaultSweep, TheFirstContactToo) {
  // Probe, version, identity 1 and 2, counter. The probe alone may fail twice without a word; the
  // version after it then decides.
  for (int target = 0; target < 5; ++target) {
    for (const int times : {1, 2}) {
      SCOPED_TRACE(std::to_string(target) + " times " + std::to_string(times));
      RunMemory freshMemory;
      RecordingView freshView(desk);
      DealingRun freshRun(desk.Prog, machine, freshMemory);
      machine.Link.UsbHandle = 7;
      desk.Ui.Boxes.clear();
      paper.Exchanges = 0;
      paper.Damage = [&](int n, const Bytes&, const Bytes& wire) {
        return n >= target && n < target + times ? Bytes{} : wire;
      };
      freshRun.Open(freshView);
      desk.Loop.WaitMs(DealingRun::kFirstContactMs + 500);
      const std::string& box = LastBox();
      if (times == 1 || target == 0) {
        EXPECT_EQ(box, "");
        EXPECT_FALSE(freshRun.Closed());
      } else {
        EXPECT_EQ(box, target == 1 ? desk.Prog.Texts.Msg047 : desk.Prog.Texts.Msg048);
        EXPECT_TRUE(freshRun.Closed());
      }
      if (!freshRun.Closed()) freshRun.Exit();
    }
  }
}

}  // namespace
}  // namespace morvane::machine
