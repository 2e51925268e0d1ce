#include "maintenance/ui/firmware_desk.h"

// How the window `Firmware` ends: cancelled, behind a fault, and done.

namespace morvane::maintenance {
namespace {

using ::testing::Contains;
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::SizeIs;

using FirmwareWindowEnd = FirmwareDesk;

TEST_F(FirmwareWindowEnd, CancelsByEscapeCloseBoxLetterAndClick) {
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

TEST_F(FirmwareWindowEnd, EscapeHeldDownDoesNotCloseTheConsoleBelow) {
  Behind = [&](int block) {
    if (block == 1) test::Press(*Shown(), Qt::Key_Escape);
  };
  Run();
  ASSERT_EQ(Shown(), nullptr);
  QKeyEvent held(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier, "", true);
  QApplication::sendEvent(window.get(), &held);
  EXPECT_FALSE(console.Closed());
}

TEST_F(FirmwareWindowEnd, EnterHeldDownOverTheFileDialogCancelsNothing) {
  Behind = [&](int block) {
    if (block != 1) return;
    QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, "\r", true);
    QApplication::sendEvent(&test::Find<QWidget>(*Shown(), "Command1"), &held);
  };
  RunUntilTold();
  EXPECT_THAT(blocks, SizeIs(5));
}

TEST_F(FirmwareWindowEnd, TheHeadersCannotBeCancelled) {
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

TEST_F(FirmwareWindowEnd, TheEndOfTheProgramEndsIt) {
  Behind = [&](int block) {
    if (block == 2) desk.Loop.Quit();
  };
  Run();
  EXPECT_THAT(blocks, ElementsAre(1, 2));
  EXPECT_EQ(Shown(), nullptr);
}

// What is known when it ends, behind the box that tells of it.

TEST_F(FirmwareWindowEnd, AFaultStandsInItsOwnLine) {
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

TEST_F(FirmwareWindowEnd, ARefusedStartHasWrittenNothing) {
  startStatus = 1;
  Run([&](QWidget& box) {
    EXPECT_EQ(TextOf("Fault"), "Error 1 before the first block");
    EXPECT_EQ(TextOf("Doing"), "The machine has refused the download. Nothing was written.");
    EXPECT_THAT(Steps(), Each(HasSubstr("not begun")));
    box.close();
  });
  EXPECT_THAT(blocks, IsEmpty());
}

TEST_F(FirmwareWindowEnd, ALostLinkClosesBothWindowsBehindOneBox) {
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

TEST_F(FirmwareWindowEnd, WithoutTheLastAnswerTheOutcomeIsNotKnown) {
  camera.OnWire = [&](test::Bytes& wire) {
    if (!blocks.empty() && blocks.back() == 0) wire.clear();
  };
  Run([&](QWidget& box) {
    EXPECT_EQ(TextOf("Doing"), "It is not known what firmware the machine holds now.");
    EXPECT_THAT(Steps(), ElementsAre("Code: done", "Bitstream: done", "Headers: not known"));
    box.close();
  });
  EXPECT_THAT(blocks, ElementsAre(1, 2, 0x201, 0x200, 0, 0));
  EXPECT_THAT(desk.LogLines(), Not(Contains("   Firmware downloaded OK")));
}

TEST_F(FirmwareWindowEnd, TheLastAnswerTellsThatItIsDone) {
  Contact();
  ServiceLink link(desk.Prog, machine, [] {});
  const ServiceLink::Turn turn(link);
  const auto file = FirmwareIn(FileOf(CodeOf(2, 0, 300), std::string(200, 'b')), path);
  FirmwareDownload download(desk.Prog, link, machine, *file, [] { return false; });
  FirmwareWindow shown(desk.Clock, download, window.get());
  download.Run(shown);
  EXPECT_EQ(TextOf("Doing"), "The machine has taken the firmware.");
  EXPECT_THAT(Steps(), Each(HasSubstr("done")));
  EXPECT_EQ(TextOf("Blocks"), "Blocks: 5 of 5");
  EXPECT_FALSE(CanCancel());
}

}  // namespace
}  // namespace morvane::maintenance
