#include <gmock/gmock.h>

#include "cli/camera_desk.h"

// maintain auto-setup.

namespace morvane::cli {
namespace {

using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::SizeIs;
using ::testing::StartsWith;

struct Desk : CameraDesk {
  explicit Desk(bool yes = true, const std::string& more = "") : CameraDesk(yes, more) {}
  const simulator::StoredParameters Before = Behind.Parameters();
  ExitStatus Setup(std::optional<int> index = {}) {
    return RunOn(Bridge, MaintainAutoSetupOptions{.Index = index, .Yes = Yes});
  }
  [[nodiscard]] const simulator::IndexRecord& Record(std::size_t index = 0) const {
    return Behind.Parameters().Records[index];
  }
  /// Somebody at the terminal who types these lines.
  void Types(std::deque<std::string> lines) {
    Yes = false;
    Screen.Person = true;
    Screen.Lines = std::move(lines);
  }
  /// What is done when so many trials have been sent.
  void AtTrial(std::size_t number, const std::function<void()>& does) {
    OnFrame = [this, number, does](const test::Bytes& plain) {
      if (plain[0] == 0x22 && Sent(0x22).size() == number) does();
    };
  }
  bool Yes = true;
};

// The paper camera has the symbol from 54 to 94 and from 20 to 80, so that the position stays:
// Int((94 - 54) / 4) + 54 is 64, and the start point is Int(2 x 60 / 3) + 20.
constexpr const char* kFound = "pos_x: 20\npos_y: 110\nstart_x: 66\nstart_y: 60\n";

TEST(MaintainAutoSetup, WhatIsFoundIsSaidAndTheMachineKeepsIt) {
  Desk desk;
  EXPECT_EQ(desk.Setup(), kDone);
  EXPECT_EQ(desk.Screen.Output, kFound);
  EXPECT_THAT(desk.Screen.Errors, StartsWith("Auto Setup: Auto Setup completed successfully."));
  EXPECT_THAT(desk.Screen.Errors, EndsWith("Parameters update: Parameters updated OK\n"));
  EXPECT_EQ(desk.Record().Positions.PosX, 20);
  EXPECT_EQ(desk.Record().Positions.PosY, 110);
  EXPECT_EQ(desk.Record().Symbol.Limits, desk.Before.Records[0].Symbol.Limits)
      << "low symbols need no higher limits";
  EXPECT_THAT(desk.LogLines(), ::testing::Contains("   AutoSetup OK for Standard 20,110,66,60"));
}

TEST(MaintainAutoSetup, HighSymbolsKeepTheRaisedLimitsAndThatIsSaid) {
  Desk desk;
  desk.Camera.SymbolBottom = 92;
  EXPECT_EQ(desk.Setup(), kDone);
  // 2 x (92 - 20) / 3 + 20
  EXPECT_EQ(desk.Screen.Output,
            "pos_x: 20\npos_y: 110\nstart_x: 66\nstart_y: 68\n"
            "Max Symbol Y:86\nMax Suit Y:76\n");
  EXPECT_EQ(desk.Record().Symbol.Limits.MaxY, 86);
  EXPECT_EQ(desk.Record().Suit.Limits.MaxY, 76);
}

TEST(MaintainAutoSetup, AsksWhatTheDesktopAsks) {
  Desk desk(/*yes=*/false);
  desk.Types({"ok", "y"});
  EXPECT_EQ(desk.Setup(), kDone);
  EXPECT_THAT(desk.Screen.Errors,
              StartsWith("Auto Setup: You are entering Auto Setup function for Standard Card"));
  EXPECT_THAT(desk.Screen.Errors, HasSubstr("Do you want to update parameters?\n[y]es, [n]o? "));
  EXPECT_EQ(desk.Record().Positions.PosX, 20);
}

TEST(MaintainAutoSetup, WithoutAYesTheMachineHoldsWhatItHeld) {
  Desk desk(/*yes=*/false);
  desk.Types({"o", "n"});
  EXPECT_EQ(desk.Setup(), kFailed);
  EXPECT_EQ(desk.Screen.Output, kFound);
  EXPECT_THAT(desk.Screen.Errors, EndsWith("The machine keeps its parameters.\n"));
  EXPECT_EQ(desk.Behind.Parameters(), desk.Before);
}

TEST(MaintainAutoSetup, WithNobodyToAskNothingIsSearchedFor) {
  Desk desk(/*yes=*/false);
  desk.Yes = false;
  EXPECT_EQ(desk.Setup(), kFailed);
  EXPECT_THAT(desk.Screen.Errors, EndsWith("Nothing is searched for.\n"));
  EXPECT_THAT(desk.Sent(0x22), IsEmpty());
  EXPECT_THAT(desk.Sent(0x13), IsEmpty());
}

TEST(MaintainAutoSetup, ACardThatIsNotFoundIsAFailure) {
  Desk desk;
  desk.Camera.SeenFrom = 256;
  EXPECT_EQ(desk.Setup(), kFailed);
  EXPECT_THAT(desk.Sent(0x22), SizeIs(230)) << "rows 110 to 20, columns 20 to 240";
  EXPECT_EQ(desk.Screen.Output, "");
  EXPECT_THAT(desk.Screen.Errors, StartsWith("Auto Setup: Auto Setup failed ."));
  EXPECT_THAT(desk.Screen.Errors, EndsWith("The machine keeps its parameters.\n"));
  EXPECT_EQ(desk.Behind.Parameters(), desk.Before);
}

TEST(MaintainAutoSetup, OfTheIndexAskedFor) {
  Desk desk;
  EXPECT_EQ(desk.Setup(2), kDone);
  EXPECT_EQ(desk.Sent(0x22, 4), (std::vector<int>{2, 2, 2}));
  EXPECT_EQ(desk.Record(2).Positions.PosY, 130);
  EXPECT_EQ(desk.Record(0), desk.Before.Records[0]);
  EXPECT_FALSE(desk.Store.Has(kCardIndex));
}

TEST(MaintainAutoSetup, AnInterruptAtAnyTrialLeavesTheMachineItsOldLimits) {
  for (const std::size_t trial : {1U, 2U, 60U}) {
    Desk desk;
    desk.Camera.SeenFrom = 256;
    bool raised = false;
    desk.AtTrial(trial, [&] {
      raised = desk.Record().Symbol.Limits.MaxY == 86;
      desk.Loop.Quit();
    });
    EXPECT_EQ(desk.Setup(), kFailed);
    EXPECT_TRUE(raised);
    EXPECT_EQ(desk.Behind.Parameters(), desk.Before);
    EXPECT_THAT(desk.Sent(0x22), SizeIs(trial));
    EXPECT_EQ(desk.Screen.Errors, "The machine keeps its parameters.\nBroken off.\n");
  }
}

TEST(MaintainAutoSetup, AnInterruptInThePictureIsNoYes) {
  for (const int line : {0, 100, 191}) {
    Desk desk(/*yes=*/true);
    desk.OnFrame = [&](const test::Bytes& plain) {
      if (plain[0] == 0x01 && plain[1] == line) desk.Loop.Quit();
    };
    EXPECT_EQ(desk.Setup(), kFailed);
    EXPECT_EQ(desk.Behind.Parameters(), desk.Before);
    EXPECT_EQ(desk.Screen.Output, "");
    EXPECT_EQ(desk.Screen.Errors, "The machine keeps its parameters.\nBroken off.\n");
  }
}

// A threshold of 5 in a machine, which is written as 10.
TEST(MaintainAutoSetup, AThresholdThatAWritePutsRightIsNoFailure) {
  Desk desk;
  for (const std::uint8_t byte : test::OnTheWire(test::Short({0x13, 9, 5, 50, 40, 40, 0}), 23)) {
    desk.Behind.Hear(byte, desk.Clock.Elapsed());
  }
  ASSERT_EQ(desk.Behind.Parameters().Thresholds.BoldSymbol, 5);
  EXPECT_EQ(desk.Setup(), kDone);
  EXPECT_EQ(desk.Behind.Parameters().Thresholds.BoldSymbol, 10);
}

TEST(MaintainAutoSetup, AnOlderFirmwareIsTold) {
  Desk desk(/*yes=*/true, ",firmware=2.7F");
  EXPECT_EQ(desk.Setup(), kFailed);
  EXPECT_THAT(desk.Screen.Errors, HasSubstr("Current Firmware version is 2.7F"));
  EXPECT_THAT(desk.Screen.Errors, EndsWith("Nothing is searched for.\n"));
}

TEST(MaintainAutoSetup, ValuesThatTheMachineDoesNotTakeAreAFailure) {
  Desk desk;
  desk.Deaf = [&](const test::Bytes& plain) {
    return plain[0] == 0x13 && !desk.Sent(0x0A).empty();
  };
  EXPECT_EQ(desk.Setup(), kFailed);
  EXPECT_THAT(desk.Screen.Errors, HasSubstr("The machine has not taken these values:"));
}

TEST(MaintainAutoSetup, LimitsThatDidNotComeBackAreNamed) {
  Desk desk;
  desk.Camera.SeenFrom = 256;
  desk.Deaf = [&](const test::Bytes& plain) {
    return plain[0] == 0x13 && !desk.Sent(0x22).empty();
  };
  EXPECT_EQ(desk.Setup(), kFailed);
  EXPECT_THAT(desk.Screen.Errors,
              EndsWith("The machine did not get these back: Sym_y_max, Suit_y_max.\n"));
}

TEST(MaintainAutoSetup, ALinkLostAtATrialIsToldOnce) {
  Desk desk;
  desk.Deaf = [](const test::Bytes& plain) { return plain[0] == 0x22; };
  EXPECT_EQ(desk.Setup(), kFailed);
  EXPECT_EQ(desk.Screen.Errors,
            "Communication Error: Lost Communication with Morvane  -  Maintenance Aborted!\n");
}

TEST(MaintainAutoSetup, AMachineWithoutFirmwareHasNone) {
  Desk desk(/*yes=*/true, ",boot=0.00");
  EXPECT_EQ(desk.Setup(), kFailed);
  EXPECT_THAT(desk.Screen.Errors, StartsWith("The machine holds no firmware"));
}

TEST(MaintainAutoSetup, ATerminalSeesWhereTheSearchIsAndHowFarThePictureHasCome) {
  Desk desk;
  desk.Screen.Progress = true;
  desk.Camera.SeenFrom = 50;
  EXPECT_EQ(desk.Setup(), kDone);
  EXPECT_THAT(desk.Screen.Output, StartsWith("\rPosition X: 30  Position Y: 110  0 %"));
  EXPECT_THAT(desk.Screen.Output, HasSubstr("\rPicture: 192 of 192 lines\r"));
  EXPECT_THAT(desk.Screen.Output, HasSubstr(" \rpos_x: 50\n"));
}

}  // namespace
}  // namespace morvane::cli
