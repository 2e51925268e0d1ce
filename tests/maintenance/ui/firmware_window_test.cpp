#include "maintenance/ui/firmware_window.h"

#include <QProgressBar>
#include <set>

#include "maintenance/ui/console_desk.h"
#include "maintenance/ui/firmware_bytes.h"
#include "platform/qt/window_place.h"

namespace morvane::maintenance {
namespace {

using ::testing::AllOf;
using ::testing::Contains;
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::Ge;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Le;
using ::testing::Not;
using ::testing::SizeIs;

/// The console at a machine whose flash is on paper.
class FirmwareWindowTest : public ConsoleDesk {
 protected:
  explicit FirmwareWindowTest(const simulator::Options& options = MachineOf())
      : ConsoleDesk(options) {}

  const std::string path = desk.Folder / "New 2.adc";
  int blockMs = 100;  ///< that each block takes
  std::uint8_t startStatus = 0;
  std::map<int, std::uint8_t> statuses;  ///< of blocks that are not good, by number on the wire
  std::vector<int> blocks;               ///< the numbers, in the order in which they were sent
  /// Once the window shows what the block with this number on the wire has come to.
  std::function<void(int block)> Behind;

  /// 300 bytes are the blocks 1, 2 and 0 with their header, 200 are 0x201 and 0x200: 516 with the
  /// head of the file.
  void WriteFile(char major = 2, char minor = '\x91') {
    test::WriteContent(path, FirmwareBytes(300, 200, major, minor));
  }
  void SetUp() override {
    ConsoleDesk::SetUp();
    camera.Answer = [this](const test::Bytes& plain) { return Answered(plain); };
  }
  void ChooseFile() {
    desk.When("cdOpen", [this](QWidget& dialog) {
      test::Type(dialog, path);
      test::Press(dialog, Qt::Key_Return);
    });
  }
  /// `look` at the box that tells of its end, where one does.
  void Run(const std::function<void(QWidget&)>& look = nullptr) {
    if (window == nullptr) Contact();
    WriteFile();
    ChooseFile();
    if (look) desk.When("MessageBox", look);
    Click("Download");
  }
  void RunUntilTold() {
    Run([](QWidget& box) { box.close(); });
  }
  static QWidget* Shown() { return test::TopWindow("Firmware"); }
  static std::string TextOf(const char* name) { return test::TextOf(*Shown(), name); }
  static std::vector<std::string> TextsOf(std::initializer_list<const char*> names) {
    std::vector<std::string> texts;
    for (const char* name : names) texts.push_back(TextOf(name));
    return texts;
  }
  static std::vector<std::string> Steps() { return TextsOf({"Step_1", "Step_2", "Step_3"}); }
  static std::vector<std::string> Counters() {
    return TextsOf({"lblFrames", "lblSum", "lblComm", "lblProg"});
  }
  static int Bar() { return test::Find<QProgressBar>(*Shown(), "Download_bar").value(); }
  static void PressLetterC() {
    const auto& button = test::Find<QAbstractButton>(*Shown(), "Command1");
    Shown()->activateWindow();
    test::Press(*Shown(), Qt::Key_C, Qt::AltModifier);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !button.isDown(); }));
  }
  static bool CanCancel() { return test::Enabled(*Shown(), "Command1"); }

 private:
  test::Bytes Answered(const test::Bytes& plain) {
    if (plain[0] == 0x29) return test::Short({0x29, startStatus});
    if (plain[0] != 0xAA) return {};
    const int block = plain[2] * 256 + plain[3];
    blocks.push_back(block);
    desk.Clock.Spend(std::chrono::milliseconds(blockMs));
    desk.Loop.Post([this, block] {
      if (Behind && Shown() != nullptr) Behind(block);
    });
    const auto status = statuses.find(block);
    return test::Short({0x2A, status == statuses.end() ? std::uint8_t{0} : status->second});
  }
};

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
                                "Time left: less than a minute"));
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
  test::WriteContent(path, FirmwareBytes(25'600, 200, 2, '\x91'));  // 200 blocks, of 2 ms
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

// Cancelling.

TEST_F(FirmwareWindowTest, CancelsByEscapeCloseBoxLetterAndClick) {
  const std::vector<std::function<void()>> ways{[] { test::Press(*Shown(), Qt::Key_Escape); },
                                                [] { Shown()->close(); }, [] { PressLetterC(); },
                                                [] { test::Click(*Shown(), "Command1"); }};
  Contact();
  for (std::size_t way = 0; way < ways.size(); ++way) {
    SCOPED_TRACE(way);
    blocks.clear();
    bool said = false;
    Behind = [&](int block) {
      if (block != 2) return;
      ways[way]();
      said = TextOf("Doing") == "Cancelling ..." && !CanCancel();
    };
    Run();
    EXPECT_TRUE(said);
    EXPECT_THAT(blocks, ElementsAre(1, 2));
    EXPECT_EQ(Shown(), nullptr);
    EXPECT_FALSE(console.Closed());
    EXPECT_EQ(Text("lblContact"), "Asking the machine ...") << "it is met anew";
    desk.Loop.WaitMs(Maintenance::kFirstContactMs + 100);
  }
  EXPECT_THAT(desk.Boxes, IsEmpty()) << "nothing is asked, nothing is told";
  EXPECT_THAT(desk.LogLines(), Contains("   Firmware download not completed: cancelled"));
}

TEST_F(FirmwareWindowTest, EscapeHeldDownDoesNotCloseTheConsoleBelow) {
  Behind = [&](int block) {
    if (block == 1) test::Press(*Shown(), Qt::Key_Escape);
  };
  Run();
  ASSERT_EQ(Shown(), nullptr);
  QKeyEvent held(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier, "", true);
  QApplication::sendEvent(window.get(), &held);
  EXPECT_FALSE(console.Closed());
}

TEST_F(FirmwareWindowTest, EnterHeldDownOverTheFileDialogCancelsNothing) {
  Behind = [&](int block) {
    if (block != 1) return;
    QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, "\r", true);
    QApplication::sendEvent(&test::Find<QWidget>(*Shown(), "Command1"), &held);
  };
  RunUntilTold();
  EXPECT_THAT(blocks, SizeIs(5));
}

TEST_F(FirmwareWindowTest, TheHeadersCannotBeCancelled) {
  int tried = 0;
  bridge.OnFrame = [&] {
    if (Shown() == nullptr || TextOf("Step_3") != "Headers: under way") return;
    ++tried;
    test::Press(*Shown(), Qt::Key_Escape);
    Shown()->close();
    EXPECT_TRUE(Shown()->isVisible());
    EXPECT_FALSE(CanCancel());
    EXPECT_EQ(TextOf("Doing"), "Writing the headers. From here on it cannot be cancelled.");
  };
  RunUntilTold();
  EXPECT_EQ(tried, 2);
  EXPECT_THAT(blocks, SizeIs(5));
  EXPECT_EQ(desk.Boxes.at(0).Title, "Firmware download");
}

TEST_F(FirmwareWindowTest, TheEndOfTheProgramEndsIt) {
  Behind = [&](int block) {
    if (block == 2) desk.Loop.Quit();
  };
  Run();
  EXPECT_THAT(blocks, ElementsAre(1, 2));
  EXPECT_EQ(Shown(), nullptr);
}

// What is known when it ends, behind the box that tells of it.

TEST_F(FirmwareWindowTest, AFaultStandsInItsOwnLine) {
  statuses[0x201] = 2;
  Run([&](QWidget& box) {
    EXPECT_EQ(TextOf("Fault"), "Error 2 at block 513");
    EXPECT_EQ(TextOf("Doing"), "The machine holds no whole firmware. It can be loaded again.");
    EXPECT_THAT(Steps(),
                ElementsAre("Code: done", "Bitstream: not completed", "Headers: not begun"));
    EXPECT_FALSE(CanCancel());
    EXPECT_EQ(TextOf("lblFrames"), "Frames: 3");
    EXPECT_EQ(TextOf("TimeLeft"), "");
    box.close();
  });
  EXPECT_THAT(blocks, ElementsAre(1, 2, 0x201));
  ASSERT_THAT(desk.Boxes, SizeIs(1));
  EXPECT_EQ(desk.Boxes[0].Title, "Download Error");
  EXPECT_EQ(Shown(), nullptr);
}

TEST_F(FirmwareWindowTest, ARefusedStartHasWrittenNothing) {
  startStatus = 1;
  Run([&](QWidget& box) {
    EXPECT_EQ(TextOf("Fault"), "Error 1 before the first block");
    EXPECT_EQ(TextOf("Doing"), "The machine has refused the download. Nothing was written.");
    EXPECT_THAT(Steps(), Each(HasSubstr("not begun")));
    box.close();
  });
  EXPECT_THAT(blocks, IsEmpty());
}

TEST_F(FirmwareWindowTest, ALostLinkClosesBothWindowsBehindOneBox) {
  Behind = [&](int block) {
    if (block != 2) return;
    camera.Answer = nullptr;
    simulated.PowerOff();
  };
  Run([&](QWidget& box) {
    EXPECT_EQ(TextOf("Doing"), "The machine holds no whole firmware. It can be loaded again.");
    EXPECT_EQ(TextOf("lblComm"), "Comm: 2");
    EXPECT_FALSE(CanCancel());
    box.close();
  });
  EXPECT_EQ(Shown(), nullptr);
  EXPECT_FALSE(window->isVisible());
  EXPECT_TRUE(console.Closed());
  ASSERT_THAT(desk.Boxes, SizeIs(1));
  EXPECT_EQ(desk.Boxes[0].Title, "Communication Error");
}

TEST_F(FirmwareWindowTest, WithoutTheLastAnswerTheOutcomeIsNotKnown) {
  camera.OnWire = [&](test::Bytes& wire) {
    if (!blocks.empty() && blocks.back() == 0) wire.clear();
  };
  Run([&](QWidget& box) {
    EXPECT_EQ(TextOf("Doing"), "It is not known what firmware the machine holds now.");
    EXPECT_THAT(Steps(), ElementsAre("Code: done", "Bitstream: done", "Headers: not completed"));
    box.close();
  });
  EXPECT_THAT(blocks, ElementsAre(1, 2, 0x201, 0x200, 0, 0));
  EXPECT_THAT(desk.LogLines(), Not(Contains("   Firmware downloaded OK")));
}

TEST_F(FirmwareWindowTest, TheLastAnswerTellsThatItIsDone) {
  Contact();
  ServiceLink link(desk.Prog, machine, [] {});
  const ServiceLink::Turn turn(link);
  const auto file = FirmwareIn(FirmwareBytes(300, 200, 2, 0), path);
  FirmwareDownload download(desk.Prog, link, machine, *file, [] { return false; });
  FirmwareWindow shown(desk.Clock, download, window.get());
  download.Run(shown);
  EXPECT_EQ(TextOf("Doing"), "The machine has taken the firmware.");
  EXPECT_THAT(Steps(), Each(HasSubstr("done")));
  EXPECT_EQ(TextOf("Blocks"), "Blocks: 5 of 5");
  EXPECT_FALSE(CanCancel());
}

// The versions, and the screen.

TEST_F(FirmwareWindowTest, TheFileIsNewerOlderOrTheSame) {
  Contact();
  const std::vector<std::tuple<char, char, std::string>> files{
      {'\x03', '\x00', "Version: 3.00, In the machine: 2.90, the file is newer"},
      {'\x02', '\x90', "Version: 2.90, In the machine: 2.90, the file has the same"},
      {'\x02', '\x8F', "Version: 2.8F, In the machine: 2.90, the file is older"}};
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
class FirmwareWindowAtBareMachine : public FirmwareWindowTest {
 protected:
  FirmwareWindowAtBareMachine() : FirmwareWindowTest(Bare()) {}
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
  EXPECT_EQ(shown, "In the machine: no firmware");
}

}  // namespace
}  // namespace morvane::maintenance
