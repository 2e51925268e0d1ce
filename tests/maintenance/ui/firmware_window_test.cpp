#include <set>

#include "maintenance/ui/firmware_desk.h"
#include "platform/qt/window_place.h"

// The window `Firmware` while a download goes on.

namespace morvane::maintenance {
namespace {

using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::Ge;
using ::testing::Le;
using ::testing::SizeIs;

using FirmwareWindowTest = FirmwareDesk;

TEST_F(FirmwareWindowTest, TellsOfTheFileAndHowFarItHasCome) {
  std::vector<std::string> seen;
  Behind = [&](int block) {
    seen.push_back(std::to_string(block) + ": " + TextOf("Blocks") + ", " + TextOf("lblFrames") +
                   ", " + std::to_string(Bar()) + " %");
    if (block != 1) return;
    EXPECT_EQ(Shown()->windowTitle(), "Morvane - Download New Firmware");
    EXPECT_EQ(TextOf("FileName"), "File: New 2.adc");
    EXPECT_EQ(test::Find<QWidget>(*Shown(), "FileName").toolTip().toStdString(), path);
    EXPECT_EQ(TextOf("FileVersion"), "Version: 2.91");
    EXPECT_EQ(TextOf("MachineVersion"), "In the machine: 2.90, the file is newer");
    EXPECT_EQ(TextOf("Doing"), "Sending the code ...");
    EXPECT_EQ(TextOf("Command1"), "&Cancel");
    EXPECT_TRUE(CanCancel());
    EXPECT_THAT(Steps(),
                ElementsAre("Code: under way", "Bitstream: not begun", "Headers: not begun"));
    EXPECT_THAT(Counters(), ElementsAre("Frames: 1", "Sum: 0", "Comm: 0", "Prog: 0"));
    EXPECT_TRUE(test::Find<QWidget>(*Shown(), "Step_1").font().bold());
    EXPECT_FALSE(test::Find<QWidget>(*Shown(), "Step_2").font().bold());
  };
  RunUntilTold();
  EXPECT_THAT(blocks, ElementsAre(1, 2, 0x201, 0x200, 0));
  // 128, 256 and 384 of 516 bytes.
  EXPECT_THAT(
      seen, ElementsAre("1: Blocks: 1 of 5, Frames: 1, 24 %", "2: Blocks: 2 of 5, Frames: 2, 49 %",
                        "513: Blocks: 3 of 5, Frames: 3, 74 %"));
  EXPECT_EQ(Shown(), nullptr);
  ASSERT_THAT(desk.Boxes, SizeIs(1));
  EXPECT_EQ(desk.Boxes[0].Title, "Firmware download");
  EXPECT_FALSE(console.Closed());
  EXPECT_EQ(Text("lblContact"), "Asking the machine ...") << "what it is now is not known yet";
  EXPECT_FALSE(Visible("Download"));
  EXPECT_NE(FocusName(), "cmdExit") << "an Enter too many must not leave";
  desk.Loop.WaitMs(Maintenance::kFirstContactMs + 100);
  EXPECT_EQ(Text("lblContact"), "Machine 4711, firmware 2.90");
  EXPECT_TRUE(Visible("Download"));
}

TEST_F(FirmwareWindowTest, EachStepIsUnderWayInItsTurn) {
  std::set<std::string> shown;
  bridge.OnFrame = [&] {
    if (Shown() == nullptr) return;
    std::string line = TextOf("Doing") + (CanCancel() ? "" : " (Cancel is off)");
    for (const auto& step : Steps()) line += " | " + step;
    shown.insert(line);
  };
  RunUntilTold();
  const std::string none = " | Code: not begun | Bitstream: not begun | Headers: not begun";
  EXPECT_THAT(
      shown,
      ElementsAre("Sending the bitstream ... | Code: done | Bitstream: under way | Headers: not "
                  "begun",
                  "Sending the code ... | Code: under way | Bitstream: not begun | Headers: not "
                  "begun",
                  "Starting the download ..." + none,
                  "Writing the headers. From here on it cannot be cancelled. (Cancel is off) | "
                  "Code: done | Bitstream: done | Headers: under way"));
}

TEST_F(FirmwareWindowTest, TheTimeLeftIsKnownBehindTheFirstBlock) {
  blockMs = 40'000;  // four more: 160 seconds, then 120, then 80
  std::vector<std::string> left;
  bridge.OnFrame = [&] {
    if (Shown() != nullptr) left.push_back(TextOf("TimeLeft"));
  };
  RunUntilTold();
  EXPECT_THAT(left, ElementsAre("Time left: ...", "Time left: ...", "Time left: about 3 minutes",
                                "Time left: about 2 minutes", "Time left: about 2 minutes",
                                "Time left: 40 s"));
}

TEST_F(FirmwareWindowTest, BadAnswersAndBlocksPassedOverAreCounted) {
  statuses[2] = 3;
  statuses[0] = 3;
  int answers = 0;
  camera.OnWire = [&](test::Bytes& wire) {
    ++answers;
    if (answers == 2) wire[3] ^= 0x10;  // block 1
    if (answers == 5) wire.clear();     // block 0x201
  };
  std::vector<std::string> counters;
  Behind = [&](int /*block*/) { counters = Counters(); };
  RunUntilTold();
  EXPECT_THAT(blocks, ElementsAre(1, 1, 2, 0x201, 0x201, 0x200, 0));
  EXPECT_THAT(counters, ElementsAre("Frames: 3", "Sum: 1", "Comm: 2", "Prog: 1"));
  EXPECT_EQ(desk.Boxes.at(0).Title, "Firmware download") << "it is done all the same";
}

TEST_F(FirmwareWindowTest, AtFullSpeedItIsNotShownBlockByBlock) {
  Contact();
  test::WriteContent(
      path, FileOf(CodeOf(2, 0x91, 25'600), std::string(200, 'b')));  // 200 blocks, of 2 ms
  blockMs = 2;
  std::set<std::string> shown;
  Behind = [&](int /*block*/) { shown.insert(TextOf("lblFrames")); };
  ChooseFile();
  desk.AnswerBox(QMessageBox::Ok);
  Click("Download");
  EXPECT_THAT(blocks, SizeIs(203));
  // Every 50 ms of 400, and where a phase begins.
  EXPECT_THAT(shown, SizeIs(AllOf(Ge(7U), Le(10U))));
}

TEST_F(FirmwareWindowTest, WhateverIsOnTheScreenAPhaseAndAnErrorAreShownAtOnce) {
  blockMs = 0;
  statuses[2] = 3;
  std::vector<std::string> counters;
  bridge.OnFrame = [&] {
    if (Shown() != nullptr) counters.push_back(TextOf("lblFrames") + ", " + TextOf("lblProg"));
  };
  RunUntilTold();
  // Before the start, 1, 2 (the last was shown just now), 0x201 (an error), 0x200 (a phase), and 0.
  EXPECT_THAT(counters,
              ElementsAre("Frames: 0, Prog: 0", "Frames: 0, Prog: 0", "Frames: 0, Prog: 0",
                          "Frames: 2, Prog: 1", "Frames: 3, Prog: 1", "Frames: 3, Prog: 1"));
}

// The versions, and the screen.

TEST_F(FirmwareWindowTest, TheFileIsNewerOlderOrTheSame) {
  Contact();
  const std::vector<std::tuple<int, int, std::string>> files{
      {3, 0x00, "Version: 3.00, In the machine: 2.90, the file is newer"},
      {2, 0x90, "Version: 2.90, In the machine: 2.90, the file has the same"},
      {2, 0x8F, "Version: 2.8F, In the machine: 2.90, the file is older"}};
  for (const auto& [major, minor, expected] : files) {
    std::string shown;
    Behind = [&](int block) {
      if (block == 1) shown = TextOf("FileVersion") + ", " + TextOf("MachineVersion");
    };
    WriteFile(major, minor);
    ChooseFile();
    desk.AnswerBox(QMessageBox::Ok);
    Click("Download");
    EXPECT_EQ(shown, expected);
    desk.Loop.WaitMs(Maintenance::kFirstContactMs + 100);
  }
}

TEST_F(FirmwareWindowTest, FitsASmallScreen) {
  bool looked = false;
  Behind = [&](int block) {
    if (block != 1) return;
    const QRect screen(0, 0, 800, 600);
    FitToScreen(*Shown(), screen);
    desk.Loop.Pump();
    EXPECT_TRUE(screen.contains(Shown()->frameGeometry()));
    looked = true;
  };
  RunUntilTold();
  EXPECT_TRUE(looked);
}

/// Boot bytes 0.
class FirmwareWindowAtBareMachine : public FirmwareDesk {
 protected:
  FirmwareWindowAtBareMachine() : FirmwareDesk(Bare()) {}
  static simulator::Options Bare() {
    simulator::Options options = MachineOf();
    options.BootMajor = options.BootMinor = 0;
    return options;
  }
};

TEST_F(FirmwareWindowAtBareMachine, ItIsSaidThatItHoldsNone) {
  Open();
  desk.Loop.WaitMs(Maintenance::kFirstContactMs + 100);
  EXPECT_EQ(FocusName(), "Download") << "it is all that can be done";
  std::string shown;
  bridge.OnFrame = [&] {
    if (Shown() != nullptr) shown = TextOf("MachineVersion");
  };
  Behind = [](int /*block*/) { test::Press(*Shown(), Qt::Key_Escape); };
  WriteFile();
  ChooseFile();
  PressLetter(Qt::Key_D, "Download");
  EXPECT_EQ(shown, "In the machine: no firmware (its hardware is not known)");
}

}  // namespace
}  // namespace morvane::maintenance
