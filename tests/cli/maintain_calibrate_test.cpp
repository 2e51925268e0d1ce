#include <gmock/gmock.h>

#include "cli/cli_desk.h"
#include "maintenance/paper_board.h"
#include "simulator/wired_machine.h"
#include "support/scripted_bridge.h"

// maintain calibrate.

namespace morvane::cli {
namespace {

using ::testing::AllOf;
using ::testing::Contains;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::SizeIs;
using ::testing::StartsWith;

/// A real machine, for all that can be seen, whose board switch is on paper.
struct Desk : CliDesk {
  explicit Desk(bool yes = true, const std::string& more = "")
      : CliDesk(yes), Yes(yes), Behind(Asked(more)) {
    Bridge.Answer = [this](const test::Bytes& plain) { return Answered(plain); };
  }
  bool Yes;
  maintenance::PaperBoard Board;
  simulator::WiredMachine Behind;
  test::ScriptedBridge Bridge{Clock};
  std::function<bool(const test::Bytes& plain)> Deaf;  ///< the machine does not hear these frames
  std::function<void()> OnTrial;
  const simulator::StoredParameters Before = Behind.Parameters();

  ExitStatus Calibrate() { return RunOn(Bridge, MaintainCalibrateOptions{.Yes = Yes}); }
  /// Somebody at the terminal who types these lines.
  void Types(std::deque<std::string> lines) {
    Screen.Person = true;
    Screen.Lines = std::move(lines);
  }

 private:
  test::Bytes Answered(const test::Bytes& plain) {
    if (Deaf && Deaf(plain)) return {};
    const std::size_t trials = Board.Trials.size();
    const test::Bytes sensor = Board.ReplyTo(plain);
    if (Board.Trials.size() > trials && OnTrial) OnTrial();
    if (!sensor.empty()) return test::OnTheWire(sensor, 21);
    test::Bytes reply;
    for (const std::uint8_t byte : test::OnTheWire(plain, 23)) {
      if (const auto saying = Behind.Hear(byte, Clock.Elapsed())) {
        reply.assign(saying->Wire.begin(), saying->Wire.end());
      }
    }
    return reply;
  }
};

constexpr const char* kStays =
    "Board_Sen stays as it is. Until the machine starts anew, its switch works with what was tried "
    "last.\n";

// Lost at 100, seen again at 131: 99 - 9 is 90, and the last value has counted on to 132.
TEST(MaintainCalibrate, WhatIsFoundIsSaidAndTheMachineKeepsIt) {
  Desk desk;
  EXPECT_EQ(desk.Calibrate(), kDone);
  EXPECT_EQ(desk.Screen.Output, "On: 99\nOff: 132\nBoard_Sen: 90\n");
  EXPECT_THAT(desk.Screen.Errors,
              AllOf(StartsWith("Calibrate Board Switch: You have entered"),
                    HasSubstr("Board Switch Calibration: The Board Switch Sensitivity value of 90 "
                              "is")));
  EXPECT_THAT(desk.Screen.Errors, EndsWith("Parameters update: Parameters updated OK\n"));
  EXPECT_EQ(desk.Behind.Parameters().Video.BoardSen, 90);
  EXPECT_EQ(desk.Behind.Parameters().Records, desk.Before.Records);
  EXPECT_THAT(desk.LogLines(), Contains("   Board Switch Calibration: 99,132"));
}

TEST(MaintainCalibrate, ABoardWithoutProblemGets200) {
  Desk desk;
  desk.Board = maintenance::PaperBoard(230, 220);
  EXPECT_EQ(desk.Calibrate(), kDone);
  EXPECT_EQ(desk.Screen.Output, "On: 219\nOff: 231\nBoard_Sen: 200\n");
}

TEST(MaintainCalibrate, AnEmptySlotIsToldBesideTheOutcome) {
  Desk desk;
  desk.Board = maintenance::PaperBoard(256, 255);
  EXPECT_EQ(desk.Calibrate(), kDone);
  EXPECT_EQ(desk.Screen.Output, "On: 254\nOff: 255\nBoard_Sen: 200\n");
  EXPECT_THAT(desk.Screen.Errors, HasSubstr("The switch has seen no board at any sensitivity."));
}

TEST(MaintainCalibrate, AsksWhatTheDesktopAsks) {
  Desk desk(/*yes=*/false);
  desk.Types({"ok", "y"});
  EXPECT_EQ(desk.Calibrate(), kDone);
  EXPECT_THAT(
      desk.Screen.Errors,
      StartsWith("Calibrate Board Switch: You have entered Calibrate Board Switch function."));
  EXPECT_THAT(desk.Screen.Errors, HasSubstr("Do you want to update it?\n[y]es, [n]o? "));
  EXPECT_EQ(desk.Behind.Parameters().Video.BoardSen, 90);
}

TEST(MaintainCalibrate, ANoLeavesTheParameter) {
  Desk desk(/*yes=*/false);
  desk.Types({"o", "n"});
  EXPECT_EQ(desk.Calibrate(), kFailed);
  EXPECT_EQ(desk.Screen.Output, "On: 99\nOff: 132\n");
  EXPECT_THAT(desk.Screen.Errors, EndsWith(kStays));
  EXPECT_EQ(desk.Behind.Parameters(), desk.Before);
}

TEST(MaintainCalibrate, WithNobodyToAskNothingIsTried) {
  Desk desk(/*yes=*/false);
  EXPECT_EQ(desk.Calibrate(), kFailed);
  EXPECT_THAT(desk.Screen.Errors, EndsWith("Nothing is calibrated.\n"));
  EXPECT_THAT(desk.Board.Trials, IsEmpty());
}

TEST(MaintainCalibrate, ABoardThatCannotBeSensedIsAFailure) {
  Desk desk;
  desk.Board = maintenance::PaperBoard(1, 0);
  EXPECT_EQ(desk.Calibrate(), kFailed);
  EXPECT_EQ(desk.Screen.Output, "On: 20\nOff: 20\n");
  EXPECT_THAT(desk.Screen.Errors, HasSubstr("The Board is too transparent"));
  EXPECT_EQ(desk.Behind.Parameters(), desk.Before);
}

TEST(MaintainCalibrate, AnInterruptEndsItAtItsStep) {
  for (const std::size_t step : {1U, 156U, 189U}) {  // the first, the last down, the last of all
    Desk desk;
    desk.OnTrial = [&] {
      if (desk.Board.Trials.size() == step) desk.Loop.Quit();
    };
    EXPECT_EQ(desk.Calibrate(), kFailed);
    EXPECT_THAT(desk.Board.Trials, SizeIs(step));
    EXPECT_EQ(desk.Behind.Parameters(), desk.Before);
    EXPECT_EQ(desk.Screen.Output, "");
    EXPECT_THAT(desk.Screen.Errors, EndsWith(std::string(kStays) + "Broken off.\n"));
  }
}

TEST(MaintainCalibrate, AMachineThatDoesNotTakeItIsAFailure) {
  Desk desk;
  desk.Deaf = [](const test::Bytes& plain) {
    return plain[0] == 0x13 && plain[1] == 14 && plain[5] == 0;
  };
  EXPECT_EQ(desk.Calibrate(), kFailed);
  EXPECT_THAT(desk.Screen.Output, EndsWith("Board_Sen: 180\n"));
  EXPECT_THAT(desk.Screen.Errors, HasSubstr("The machine has not taken these values:"));
}

TEST(MaintainCalibrate, ALinkLostInASweepIsToldOnce) {
  Desk desk;
  desk.Deaf = [&](const test::Bytes& plain) {
    return plain[0] == 0x1B && desk.Board.Trials.size() > 160;
  };
  EXPECT_EQ(desk.Calibrate(), kFailed);
  EXPECT_EQ(desk.Screen.Output, "");
  EXPECT_THAT(
      desk.Screen.Errors,
      EndsWith("Communication Error: Lost Communication with Morvane  -  Maintenance Aborted!\n"));
}

TEST(MaintainCalibrate, AMachineThatCannotIsToldWhy) {
  for (const auto& [more, why] :
       {std::pair{",firmware=2.7F", "Calibration requires firmware 2.80 or later."},
        {",hardware=0x3F", "The machine has no optical board switch."},
        {",boot=0.00", "The machine holds no firmware"}}) {
    Desk desk(/*yes=*/true, more);
    EXPECT_EQ(desk.Calibrate(), kFailed);
    EXPECT_THAT(desk.Screen.Errors, HasSubstr(why));
    EXPECT_THAT(desk.Board.Trials, IsEmpty());
  }
}

TEST(MaintainCalibrate, ATerminalSeesWhereTheSweepIs) {
  Desk desk;
  desk.Screen.Progress = true;
  EXPECT_EQ(desk.Calibrate(), kDone);
  EXPECT_THAT(desk.Screen.Output, StartsWith("\rCheck: 254    1  0 %"));
  EXPECT_THAT(desk.Screen.Output, HasSubstr("\rCheck: 132    1  75 %"));
  EXPECT_THAT(desk.Screen.Output, HasSubstr("\rOn: 99\n"));
  EXPECT_THAT(desk.Screen.Output, Not(HasSubstr("Board_Sen: 180")));
}

}  // namespace
}  // namespace morvane::cli
