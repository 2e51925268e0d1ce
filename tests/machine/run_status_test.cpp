#include "machine/run_status.h"

#include "machine/run_fixture.h"

namespace morvane::machine {
namespace {

using ::testing::ElementsAre;
using Outcome = DealingRun::Outcome;

constexpr const char* kLost = "Lost communication with the machine";

/// Every status that the fields can make, possible or not.
std::vector<RunStatus> AllStatuses() {
  std::vector<RunStatus> all;
  for (std::int32_t state = 1; state <= 6; ++state) {
    for (unsigned bits = 0; bits < 16; ++bits) {
      for (const Outcome outcome :
           {Outcome::kNone, Outcome::kDone, Outcome::kStopped, Outcome::kLinkLost}) {
        all.push_back({RunKind::kDeal, state, (bits & 1U) != 0, (bits & 2U) != 0, (bits & 4U) != 0,
                       (bits & 8U) != 0, outcome});
      }
    }
  }
  return all;
}

TEST(StatusLine, FitsTheStateBesideItWhateverTheRunIsAt) {
  for (const RunStatus& now : AllStatuses()) {
    const std::string state = StatusText(now.MachineState);
    const std::string line(StatusLine(now));
    SCOPED_TRACE(state + " | " + line);
    const bool ready = line.starts_with("Ready");
    const bool dealing = line.starts_with("Dealing");
    EXPECT_TRUE(state == "Idle" || !(ready || line.starts_with("Last board")));
    EXPECT_TRUE(state == "Busy" || !(dealing || line == "The machine is busy"));
    EXPECT_TRUE(state == "Error" || line != "The machine has stopped");
    EXPECT_TRUE(now.Running || !(dealing || line.starts_with("Board")));
    EXPECT_FALSE(now.Running && ready);
    EXPECT_EQ(now.LinkLost, line == kLost || line == "The machine does not answer");
    EXPECT_NE(line, "");
  }
}

TEST(StatusLine, SaysWhatTheRunIsAt) {
  const auto line = [](std::int32_t state, bool running, Outcome outcome) {
    return StatusLine(
        {.MachineState = state, .MachineKnown = true, .Running = running, .LastOutcome = outcome});
  };
  EXPECT_EQ(line(Machine::kIdle, false, Outcome::kNone), "Ready to deal");
  EXPECT_EQ(line(Machine::kIdle, true, Outcome::kNone), "Board under way ...");
  EXPECT_EQ(line(Machine::kBusy, true, Outcome::kNone), "Dealing ...");
  EXPECT_EQ(line(Machine::kError, true, Outcome::kNone), "The machine has stopped");
  EXPECT_EQ(line(Machine::kIdle, true, Outcome::kDone), "Last board dealt");
  EXPECT_EQ(line(Machine::kIdle, false, Outcome::kDone), "Last board dealt");
  EXPECT_EQ(line(Machine::kIdle, false, Outcome::kStopped), "Last board not finished");
  EXPECT_EQ(line(Machine::kBusy, false, Outcome::kDone), "The machine is busy");
  EXPECT_EQ(line(Machine::kError, false, Outcome::kDone), "The machine has stopped");
  EXPECT_EQ(StatusLine({.MachineState = Machine::kNotConnected}), "Waiting for the machine ...");
  EXPECT_EQ(StatusLine({.MachineState = Machine::kBusy, .Running = true, .Leaving = true}),
            "Leaving when the machine has stopped ...");
  EXPECT_EQ(StatusLine({.MachineState = Machine::kBusy, .LinkLost = true, .MachineKnown = true}),
            kLost);
  EXPECT_EQ(StatusLine({.MachineState = Machine::kNoVersion, .LinkLost = true}),
            "The machine does not answer");
}

/// A run whose every call of its view is noted: the state and the line beside it, changes only.
class ShownStatus : public RunFixture {
 protected:
  void SetUp() override {
    RunFixture::SetUp();
    view.OnStatus = [this] { Note(); };
    desk.Ui.OnBox = [this] { atBoxes.push_back(lines.back()); };
  }
  void Note() {
    const std::string line =
        StatusText(machine.MachineState) + " | " + std::string(StatusLine(StatusOf(run)));
    if (lines.empty() || lines.back() != line) lines.push_back(line);
  }

  std::vector<std::string> lines;
  std::vector<std::string> atBoxes;  ///< what stands behind each box
};

TEST_F(ShownStatus, OfAWholeRunIsTrueAtEachCall) {
  paper.Codes = {54};
  view.Answers = {Continue};
  Contact();
  run.cmdDeal();
  desk.Loop.WaitMs(300);
  EXPECT_THAT(
      lines, ElementsAre("Down | Waiting for the machine ...", "Idle | Waiting for the machine ...",
                         "Idle | Ready to deal", "Idle | Board under way ...", "Busy | Dealing ...",
                         "Error | The machine has stopped", "Busy | Dealing ...",
                         "Idle | Board under way ...", "Idle | Last board dealt"));
}

TEST_F(ShownStatus, BehindTheBoxesOfALostLinkSaysSo) {
  Contact();
  int polls = 0;
  desk.Loop.OnPump = [&] {
    if (++polls == 2) paper.Powered = false;
  };
  run.cmdDeal();
  EXPECT_THAT(atBoxes, ElementsAre(std::string("Down | ") + kLost));
}

TEST_F(ShownStatus, BehindTheBoxOfALinkLostBetweenTwoBoardsSaysSo) {
  Contact();
  paper.Powered = false;
  desk.Loop.WaitMs(100);
  EXPECT_THAT(atBoxes, ElementsAre(std::string("Down | ") + kLost));
}

TEST_F(ShownStatus, BehindBothBoxesOfALinkLostInTheErrorDialogSaysSo) {
  paper.Codes = {54};
  view.Answers = {[this](ErrorDialog&) { paper.Powered = false; }};
  Contact();
  run.cmdDeal();
  EXPECT_THAT(atBoxes, ElementsAre(std::string("Down | ") + kLost, std::string("Down | ") + kLost));
}

TEST_F(ShownStatus, BehindTheBoxOfASilentMachineSaysSo) {
  paper.Powered = false;
  Open();
  desk.Loop.WaitMs(DealingRun::kFirstContactMs + 1000);
  EXPECT_THAT(atBoxes, ElementsAre("Down | The machine does not answer"));
}

TEST_F(ShownStatus, BehindTheBoxesAtABoardsEndSaysHowItEnded) {
  desk.Ui.Default = kNo;
  Contact();
  paper.CardsLogged = 16;
  run.cmdDeal();
  paper.CardsLogged = 52;
  run.Walk(BoardWalk::Step::kLast);
  run.cmdDeal();
  EXPECT_THAT(atBoxes, ElementsAre("Idle | Last board not finished", "Idle | Last board dealt"));
}

TEST_F(ShownStatus, OfAMachineThatIsBusyBetweenTwoBoardsIsNotReady) {
  Contact();
  lines.clear();
  paper.Damage = [](int, const test::Bytes& plain, const test::Bytes& wire) {
    return plain[0] == 0x19 ? test::OnTheWire(test::Short({0x19, 0xFF}), 21) : wire;
  };
  desk.Loop.WaitMs(200);
  EXPECT_THAT(lines, ElementsAre("Busy | The machine is busy"));
}

}  // namespace
}  // namespace morvane::machine
