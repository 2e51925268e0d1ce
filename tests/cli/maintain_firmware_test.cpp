#include <gmock/gmock.h>

#include "cli/cli_desk.h"
#include "maintenance/paper_flash.h"

// maintain firmware.

namespace morvane::cli {
namespace {

using maintenance::CodeOf;
using maintenance::FileOf;
using ::testing::Contains;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

struct Desk : CliDesk {
  explicit Desk(const std::string& more = "") : CliDesk(false, Asked(more)) {
    PutFile(CodeOf(2, 0x83));
  }
  void PutFile(const std::string& code, const std::string& bitstream = std::string(200, 'b')) {
    test::WriteContent(File, FileOf(code, bitstream));
  }
  ExitStatus Load() {
    Screen.Output.clear();
    Screen.Errors.clear();
    return Run(MaintainFirmwareOptions{.File = File});
  }
  std::string File = Folder / "new.adc";
};

TEST(MaintainFirmware, IsDoneWhenTheMachineSaysThatItHoldsIt) {
  Desk desk;
  EXPECT_EQ(desk.Load(), kDone);
  EXPECT_EQ(desk.Screen.Output, "Soft_ver: 2.83\n");
  EXPECT_THAT(desk.Screen.Errors,
              HasSubstr("Firmware file: version 2.83\nIn the machine: 2.90, the file is older\n"));
  EXPECT_THAT(desk.Screen.Errors, HasSubstr("New Firmware downloaded OK"));
  EXPECT_THAT(desk.LogLines(), Contains("   Firmware downloaded OK"));
}

TEST(MaintainFirmware, LoadsAMachineThatHoldsNone) {
  Desk desk(",boot=0.00");
  EXPECT_EQ(desk.Load(), kDone);
  EXPECT_EQ(desk.Screen.Output, "Soft_ver: 2.83\n");
  EXPECT_THAT(desk.Screen.Errors,
              HasSubstr("In the machine: no firmware (its hardware is not known)\n"));
  EXPECT_THAT(desk.Screen.Errors, Not(HasSubstr("It can only be loaded")));
}

TEST(MaintainFirmware, AFileThatIsNoneIsRefusedAndTheMachineKeepsWhatItHas) {
  Desk desk;
  test::WriteContent(desk.File, "no firmware at all");
  EXPECT_EQ(desk.Load(), kFailed);
  EXPECT_THAT(desk.Screen.Errors, HasSubstr("Incorrect or corrupted firmware file"));
  EXPECT_EQ(desk.Screen.Output, "");
  desk.PutFile(CodeOf(2, 0x90));
  EXPECT_EQ(desk.Load(), kDone);
  EXPECT_THAT(desk.Screen.Errors, HasSubstr("In the machine: 2.90, the file has the same\n"));
}

TEST(MaintainFirmware, AFileThatIsNotThereIsTold) {
  Desk desk;
  desk.File = desk.Folder / "none.adc";
  EXPECT_EQ(desk.Load(), kFailed);
  EXPECT_THAT(desk.Screen.Errors, HasSubstr("No such file or directory"));
}

TEST(MaintainFirmware, AMachineWithVideoSettingsRefusesAnOlderOne) {
  Desk desk;
  desk.PutFile(CodeOf(2, 0x7F));
  EXPECT_EQ(desk.Load(), kFailed);
  EXPECT_THAT(desk.Screen.Errors, HasSubstr("Firmware download: "));
  EXPECT_EQ(desk.Screen.Output, "");
}

TEST(MaintainFirmware, AFaultIsToldWithItsBlockAndWithWhatTheMachineHoldsThen) {
  Desk desk(",flash=0x201:2");
  EXPECT_EQ(desk.Load(), kFailed);
  EXPECT_THAT(desk.Screen.Errors, HasSubstr("Error: 2 during programming at 513"));
  EXPECT_THAT(desk.Screen.Errors,
              HasSubstr("Error 2 at block 513.\n"
                        "The machine holds no whole firmware. It can be loaded again.\n"));
  EXPECT_THAT(desk.Screen.Errors, EndsWith("it can only be loaded with one.\n"));
  EXPECT_EQ(desk.Screen.Output, "");
  EXPECT_EQ(desk.Load(), kDone) << "a second download succeeds";
}

TEST(MaintainFirmware, ARefusedStartLeavesTheOldOne) {
  Desk desk(",flash=start:5");
  EXPECT_EQ(desk.Load(), kFailed);
  EXPECT_THAT(desk.Screen.Errors, HasSubstr("Error 5 before the first block.\n"));
  EXPECT_THAT(desk.Screen.Errors, HasSubstr("Nothing was written.\n"));
  EXPECT_EQ(desk.Screen.Output, "Soft_ver: 2.90\n");
}

TEST(MaintainFirmware, ABlockThatWasPassedOverIsSeenWhenTheMachineStarts) {
  Desk desk(",flash=0x201:3");
  EXPECT_EQ(desk.Load(), kFailed);
  EXPECT_THAT(desk.Screen.Errors, HasSubstr("New Firmware downloaded OK"));
  EXPECT_THAT(desk.Screen.Errors,
              HasSubstr("Frames: 3, Sum: 0, Comm: 0, Prog: 1\n"
                        "All blocks were sent, but not all of them could be written.\n"));
  EXPECT_THAT(desk.Screen.Errors, EndsWith("it can only be loaded with one.\n"));
}

TEST(MaintainFirmware, AMachineThatReportsAnotherVersionIsNotCalledLoaded) {
  Desk desk;
  test::ScriptedBridge bridge(desk.Clock);
  maintenance::PaperFlash flash;
  bridge.Answer = [&](const test::Bytes& plain) {
    const test::Bytes reply = flash.ReplyTo(plain);
    if (!reply.empty()) return reply;
    const bool isVersion = plain[0] == 0x1A;
    const bool isLong = plain[0] == 0x32 || plain[0] == 0x33;
    test::Bytes others = isVersion ? test::Short({0x1A, 2, 0x90, 1, 0x20, 4})
                         : isLong  ? test::Long({static_cast<std::uint8_t>(plain[0] | 0x80)})
                                   : test::Short({plain[0], plain[1]});
    return test::OnTheWire(others, 21);
  };
  EXPECT_EQ(desk.RunOn(bridge, MaintainFirmwareOptions{.File = desk.File}), kFailed);
  EXPECT_EQ(desk.Screen.Output, "Soft_ver: 2.90\n");
  EXPECT_THAT(desk.Screen.Errors, EndsWith("The file holds version 2.83.\n"));
}

// The first contact is 2 s from the start; the wire takes 12 ms a block of some 1000.
TEST(MaintainFirmware, BrokenOffItSaysWhatTheMachineHoldsAndASecondOneSucceeds) {
  Desk desk(",speed=1");
  const std::string half(65000, 'x');
  desk.PutFile(half, half);
  desk.Loop.After(4000, [&] { desk.Loop.Quit(); });
  EXPECT_EQ(desk.Load(), kFailed);
  EXPECT_THAT(desk.Screen.Errors,
              EndsWith("The machine holds no whole firmware. It can be loaded again.\n"
                       "Broken off.\n"));
  desk.Loop.Restart();
  EXPECT_EQ(desk.Run(MaintainInfoOptions{}), kDone);
  EXPECT_THAT(desk.Screen.Output, Not(HasSubstr("Serial_number: 4711")));
  desk.PutFile(CodeOf(2, 0x83));
  EXPECT_EQ(desk.Load(), kDone);
  EXPECT_EQ(desk.Screen.Output, "Soft_ver: 2.83\n");
}

}  // namespace
}  // namespace morvane::cli
