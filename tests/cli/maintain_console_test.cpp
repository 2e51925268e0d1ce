#include <gmock/gmock.h>

#include <utility>

#include "cli/cli_desk.h"
#include "cli/service_lines.h"
#include "support/scripted_bridge.h"
#include "wire/service_commands.h"

// maintain info and maintain watch.

namespace morvane::cli {
namespace {

using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

struct Desk : CliDesk {
  explicit Desk(const std::string& more = "") : CliDesk(false, Asked(more)) {}
  [[nodiscard]] int Polls() const {
    int polls = 0;
    for (std::size_t at = 0; at < Machine.Frames().Count(); ++at) {
      // Repeated ones are one entry, with their number in front.
      const std::string text = Machine.Frames().Text(at);
      if (text.find("CmdOutputs") == std::string::npos) continue;
      polls += text.starts_with("CmdOutputs") ? 1 : std::stoi(text);
    }
    return polls;
  }
};

constexpr const char* kInfo =
    "Serial_number: 4711\n"
    "Boards_dealed: 0\n"
    "Manuf_date: 14.6.2019\n"
    "Hardware_ID: 127\n"
    "Soft_ver: 2.90\n"
    "Down_ID: 33\n"  // 1 + 0x20
    "txtUSB_ID: 4711S\n"
    "Flash_ID_text: 4\n"
    "USB_driver: 3.3.0.0\n"
    "DLLver: 3.1.0.0\n"
    "Boot_ver: 01.20\n"
    "FPGA_ver: 3.7\n"
    "Motors: 0\n"
    "Gate1: 0\n"
    "Gate2: 0\n"
    "Gate3: 0\n"
    "Cam_leds: 0\n"
    "Cam_power: 0\n"
    "Front_green_led: 0\n"
    "Front_Red_Led: 0\n"
    "Photo1: 35\n"
    "Photo2: 35\n"
    "Photo3: 35\n"
    "Photo4: 35\n"
    "Photo5: 35\n"
    "Front_Switch: OFF\n"
    "Cover_Switch: ON\n"
    "Box_Switch: OFF\n"
    "Flip_Switch:\n"  // nobody sees it without the camera's light
    "Motor_speed_1: 0\n"
    "Motor_speed_2: 0\n"
    "Motor_speed_3: 0\n"
    "Motor_speed_4: 0\n"
    "Inside_temp: 25.3\n"
    "Supply_volt: 24.0\n"
    "Board_no_txt: 0\n"
    "Board_no_test_txt: 0\n"
    "National: AHVB\n"
    "CardType: Framed\n"
    "Threshold: Bold\n"
    "CardIndex: Small\n"
    "param_ID: 1003\n"
    "pos_x: 58\n"
    "pos_y: 78\n"
    "start_x: 64\n"
    "start_y: 18\n"
    "Sym_x_max: 24\n"
    "Sym_y_max: 34\n"
    "Sym_x_min: 8\n"
    "Sym_y_min: 18\n"
    "Suit_x_max: 24\n"
    "Suit_y_max: 34\n"
    "Suit_x_min: 8\n"
    "Suit_y_min: 18\n"
    "Ignore_flip: 0\n"
    "Ignore_box: 0\n"
    "Use_Board: 0\n"
    "Bold_th_txt: 50\n"
    "Bold_th1_txt: 50\n"
    "Fine_th_txt: 40\n"
    "Fine_th1_txt: 40\n"
    "Reco_option_txt: 0\n"
    "Video_Brightness: 128\n"
    "Video_Contrast: 128\n"
    "Board_Sen: 180\n";

TEST(MaintainInfoCommand, ShowsWhatTheConsoleShowsInItsOrder) {
  Desk desk;
  for (const auto& [key, value] :
       {std::pair{kNational, "4"}, {kCardType, "1"}, {kThreshold, "2"}, {kCardIndex, "2"}}) {
    desk.Store.Set(key, value);
  }
  EXPECT_EQ(desk.Run(MaintainInfoOptions{}), kDone);
  EXPECT_EQ(desk.Screen.Output, kInfo);
  EXPECT_EQ(desk.Screen.Errors, "Machine: simulated\n");
  EXPECT_FALSE(desk.Machine.LatchOn());
}

TEST(MaintainInfoCommand, OnAnOldFirmwareWhatItDoesNotTellIsEmptyOrLeftOut) {
  Desk desk(",firmware=2.1F");
  EXPECT_EQ(desk.Run(MaintainInfoOptions{}), kDone);
  EXPECT_THAT(desk.Screen.Output, HasSubstr("\nCover_Switch: ON\n"));
  EXPECT_THAT(desk.Screen.Output, HasSubstr("\nMotor_speed_1:\n"));
  EXPECT_THAT(desk.Screen.Output, HasSubstr("\nInside_temp:\nSupply_volt:\n"));
  EXPECT_THAT(desk.Screen.Output, EndsWith("\nSuit_y_min: 20\n"));
}

TEST(MaintainInfoCommand, PollsTenTimes) {
  Desk desk(",firmware=2.1F");  // a poll is one frame
  desk.Run(MaintainInfoOptions{});
  EXPECT_EQ(desk.Polls(), 10);
}

TEST(MaintainInfoCommand, OfAMachineWithoutFirmwareShowsWhatIsKnown) {
  Desk desk(",boot=0.00");
  EXPECT_EQ(desk.Run(MaintainInfoOptions{}), kDone);
  EXPECT_THAT(desk.Screen.Output, HasSubstr("Soft_ver: 2.90\nDown_ID: 0\n"));
  EXPECT_THAT(desk.Screen.Output, HasSubstr("Serial_number:\n"));
  EXPECT_THAT(desk.Screen.Output, EndsWith("CardIndex: Standard\n"));
  EXPECT_THAT(desk.Screen.Errors, HasSubstr("The machine holds no firmware"));
}

TEST(MaintainInfoCommand, AMachineThatDoesNotAnswerIsAFailure) {
  Desk desk;
  desk.Machine.PowerOff();
  EXPECT_EQ(desk.Run(MaintainInfoOptions{}), kFailed);
  EXPECT_EQ(desk.Screen.Output, "");
  EXPECT_EQ(desk.Screen.Errors,
            "Machine: simulated\n"
            "Communication Error: Cannot communicate with Morvane.\n"
            "Please check if power is connected to the machine and try again.\n");
}

TEST(MaintainInfoCommand, StoresNoSelection) {
  Desk desk(",firmware=2.3F");  // the large index is not for this one
  desk.Store.Set(kCardIndex, "1");
  EXPECT_EQ(desk.Run(MaintainInfoOptions{}), kDone);
  EXPECT_THAT(desk.Screen.Output, HasSubstr("CardIndex: Standard\n"));
  EXPECT_EQ(desk.Store.Get(kCardIndex), "1");
  EXPECT_FALSE(desk.Store.Has(kNational));
}

TEST(ServiceLine, AControlCharacterFromTheMachineDoesNotSteerTheTerminal) {
  EXPECT_EQ(TextOf(ServiceLine{"txtUSB_ID", "47\x1b[2J"}), "txtUSB_ID: 47?[2J");
}

TEST(ServiceLines, EachOutputHasItsOwnBit) {
  const auto on = [](std::uint8_t outputs) {
    std::string names;
    for (const ServiceLine& line : OutputLines(outputs)) {
      if (line.Value == "1") names += line.Name + " ";
    }
    return names;
  };
  using wire::OutputsCommand;
  EXPECT_EQ(on(OutputsCommand::kMotors), "Motors ");
  EXPECT_EQ(on(OutputsCommand::kGate1 | OutputsCommand::kGate3), "Gate1 Gate3 ");
  EXPECT_EQ(on(OutputsCommand::kCamLeds), "Cam_leds ");
  EXPECT_EQ(on(OutputsCommand::kCamPower), "Cam_power ");
  EXPECT_EQ(on(OutputsCommand::kFrontGreenLed), "Front_green_led ");
  EXPECT_EQ(on(OutputsCommand::kFrontRedLed), "Front_Red_Led ");
}

TEST(MaintainWatchCommand, ShowsAllSensorsOnceAndThenThoseThatChanged) {
  Desk desk;
  // The first poll is 50 ms behind the first contact, at 2 s.
  desk.Loop.After(2500,
                  [&] { desk.Machine.Opened().Set(simulator::Sensors::Switch::Cover, false); });
  EXPECT_EQ(desk.Run(MaintainWatchOptions{.Polls = 20}), kDone);
  EXPECT_THAT(desk.Screen.Output, StartsWith("Photo1: 35\n"));
  EXPECT_THAT(desk.Screen.Output, EndsWith("\nBoard_no_test_txt: 0\nCover_Switch: OFF\n"));
}

TEST(MaintainWatchCommand, OnATerminalEachPollStandsInThePlaceOfTheLast) {
  Desk desk;
  desk.Screen.Progress = true;
  EXPECT_EQ(desk.Run(MaintainWatchOptions{.Polls = 2}), kDone);
  const std::string& text = desk.Screen.Output;
  const std::size_t second = text.find("\x1b[17A");  // 5 + 4 + 4 + 2 + 2 lines up
  ASSERT_NE(second, std::string::npos);
  EXPECT_THAT(text.substr(0, second), StartsWith("Photo1: 35\x1b[K\n"));
  EXPECT_EQ(text.substr(second + 5), text.substr(0, second));
}

TEST(MaintainWatchCommand, EndsAfterSoManyPolls) {
  Desk desk(",firmware=2.1F");
  EXPECT_EQ(desk.Run(MaintainWatchOptions{.Polls = 7}), kDone);
  EXPECT_EQ(desk.Polls(), 7);
}

TEST(MaintainWatchCommand, AnInterruptEndsItWellAndSwitchesTheLatchOff) {
  Desk desk;
  bool latched = false;
  desk.Loop.After(5000, [&] {
    latched = desk.Machine.LatchOn();
    desk.Loop.Quit();
  });
  EXPECT_EQ(desk.Run(MaintainWatchOptions{}), kDone);
  EXPECT_TRUE(latched);
  EXPECT_FALSE(desk.Machine.LatchOn());
  EXPECT_THAT(desk.LogLines().back(), StartsWith(" Exit: "));
}

TEST(MaintainWatchCommand, ALostLinkIsAFailure) {
  Desk desk;
  desk.Loop.After(3000, [&] { desk.Machine.PowerOff(); });
  EXPECT_EQ(desk.Run(MaintainWatchOptions{}), kFailed);
  EXPECT_THAT(desk.Screen.Output, StartsWith("Photo1: 35\n"));
  EXPECT_EQ(desk.Screen.Errors,
            "Machine: simulated\n"
            "Communication Error: Lost Communication with Morvane  -  Maintenance Aborted!\n");
}

TEST(MaintainWatchCommand, AMachineWithoutFirmwareHasNoSensors) {
  Desk desk(",boot=0.00");
  EXPECT_EQ(desk.Run(MaintainWatchOptions{.Polls = 3}), kFailed);
  EXPECT_EQ(desk.Screen.Output, "");
  EXPECT_THAT(desk.Screen.Errors, EndsWith("holds no firmware: it can only be loaded with one.\n"));
}

TEST(MaintainWatchCommand, AMissingMachineIsAFailure) {
  Desk desk;
  test::ScriptedBridge bridge(desk.Clock);
  bridge.FailingCall = "GetNumDevices";
  bridge.FailureStatus = UsbXpress::kDeviceNotFound;
  EXPECT_EQ(desk.RunOn(bridge, MaintainWatchOptions{}), kFailed);
  EXPECT_EQ(desk.Screen.Output, "");
  EXPECT_THAT(desk.Screen.Errors, Not(HasSubstr("simulated")));
}

}  // namespace
}  // namespace morvane::cli
