#include "shell/firmware_desk.h"
#include "text/box_text.h"

namespace morvane::shell {
namespace {

using edit::Editor;
using maintenance::Maintenance;
using print::HandRecord;
using test::FakeUi;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

// A firmware file from outside, from wherever the program stands.

TEST(FirmwareRequest, AFileAtTheStartIsDownloadedWithoutAWord) {
  FirmwareDesk desk;
  desk.Main.StartUp('"' + desk.Path + '"');
  EXPECT_TRUE(desk.Downloaded());
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
  EXPECT_THAT(desk.Ui.FileRequests, IsEmpty());
  EXPECT_THAT(desk.Ui.Statuses, ElementsAre("Loading...", "Ready", "Maintenance", "Ready"));
  EXPECT_FALSE(desk.Main.TheMachine().Link.IsOpen());
  EXPECT_FALSE(desk.Main.FlowActive());
  desk.MoveMouse();
  EXPECT_EQ(desk.Bits(), 24);
}

TEST(FirmwareRequest, AtTheStartItIsTakenForNoBoardFileInAnyCase) {
  FirmwareDesk desk;
  desk.Main.StartUp("\"/disk/New.Adc\"");
  ASSERT_THAT(desk.Ui.Boxes, SizeIs(1));
  EXPECT_EQ(desk.Ui.Boxes[0].Title, "Download Error");
  EXPECT_THAT(desk.LogLines(), Contains("   Firmware file open: /disk/New.Adc"));
  EXPECT_FALSE(desk.Prog.Set.Exists());
  EXPECT_FALSE(desk.Main.TheMachine().Link.IsOpen());
}

TEST(FirmwareRequest, WithoutAMachineItIsToldAndDropped) {
  FirmwareDesk desk;
  desk.Bridge.FailingCall = "Open";
  desk.Ui.Answers = {kCancel};
  desk.Main.StartUp('"' + desk.Path + '"');
  EXPECT_THAT(desk.Ui.Boxes, SizeIs(1));
  EXPECT_THAT(desk.Flash.Heard, IsEmpty());
  EXPECT_EQ(desk.Ui.Statuses.back(), "Ready");
}

TEST(FirmwareRequest, WhenNoFlowIsOpenTheServiceOpensForIt) {
  FirmwareDesk desk;
  desk.Start();
  int opened = 0;
  desk.Desktop.OnMaintenance = [&](Maintenance&) { ++opened; };
  desk.Programs.Call("2" + desk.Path);
  EXPECT_EQ(desk.Desktop.ToFront, 1);
  EXPECT_THAT(desk.Flash.Heard, IsEmpty()) << "not in the call itself";
  desk.Loop.WaitMs(Shell::kTimer2Ms);
  EXPECT_TRUE(desk.Downloaded());
  EXPECT_EQ(opened, 1);
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
  EXPECT_THAT(desk.Ui.Statuses, ElementsAre("Maintenance", "Ready"));
  desk.MoveMouse();
  EXPECT_EQ(desk.Bits(), 24) << "Timer2mm goes on";
}

TEST(FirmwareRequest, InTheServiceItIsDownloadedAndTheServiceStays) {
  FirmwareDesk desk;
  desk.Start();
  desk.Desktop.OnMaintenance = [&](Maintenance& console) {
    desk.Loop.After(Maintenance::kFirstContactMs + 10,
                    [&] { desk.Main.LinkExecute("2" + desk.Path); });
    desk.Loop.After(9000, [&] {
      EXPECT_FALSE(console.Closed());
      console.Exit();
    });
  };
  desk.Main.MenuMaintenance();
  EXPECT_TRUE(desk.Downloaded());
  EXPECT_THAT(desk.Ui.Boxes, ElementsAre(FakeUi::Box{desk.Prog.Texts.Msg057, kOkInformation,
                                                     "Firmware download"}));
}

TEST(FirmwareRequest, InTheEditorItIsAskedAndTheEditorStays) {
  FirmwareDesk desk;
  desk.Start();
  desk.Ui.Answers = {kYes};
  desk.Desktop.OnEdit = [&](Editor&) {
    desk.Main.LinkExecute("2" + desk.Path);
    desk.Loop.WaitMs(Editor::kTimer1Ms);
    EXPECT_TRUE(desk.Downloaded());
    EXPECT_EQ(desk.Ui.Statuses.back(), "Edit Board");
    EXPECT_FALSE(desk.Main.TheMachine().Link.IsOpen());
  };
  desk.Main.MenuEdit();
  EXPECT_THAT(desk.Ui.Boxes,
              ElementsAre(FakeUi::Box{Fill(desk.Prog.Texts.Msg091, "***", desk.Path),
                                      kYesNoExclamationNo, "Download New Firmware"}));
}

TEST(FirmwareRequest, InTheEditorNoDropsIt) {
  FirmwareDesk desk;
  desk.Start();
  desk.Ui.Answers = {kNo};
  desk.Desktop.OnEdit = [&](Editor&) {
    desk.Main.LinkExecute("2" + desk.Path);
    desk.Loop.WaitMs(5 * Editor::kTimer1Ms);
  };
  desk.Main.MenuEdit();
  EXPECT_THAT(desk.Ui.Boxes, SizeIs(1));
  EXPECT_THAT(desk.Flash.Heard, IsEmpty());
  EXPECT_EQ(desk.Prog.Link.Pending, LinkRequest::kNone);
}

TEST(FirmwareRequest, WhilePagesAreLaidOutItIsAsked) {
  FirmwareDesk desk;
  desk.Start();
  test::FillSet(desk.Prog.Set, 1, 1);
  desk.Ui.Answers = {kYes};
  desk.Desktop.OnHandRecord = [&](HandRecord&) {
    desk.Programs.Call("2" + desk.Path);
    desk.Loop.WaitMs(2 * HandRecord::kTimer1Ms);
    EXPECT_TRUE(desk.Downloaded());
    EXPECT_EQ(desk.Ui.Statuses.back(), "Printing");
  };
  desk.Main.MenuPrint();
  ASSERT_THAT(desk.Ui.Boxes, SizeIs(1));
  EXPECT_EQ(desk.Ui.Boxes[0].Text, Fill(desk.Prog.Texts.Msg091, "***", desk.Path));
  EXPECT_EQ(desk.Prog.Link.Pending, LinkRequest::kNone);
}

TEST(FirmwareRequest, AProgramThatEndsMeanwhileSendsNoHeader) {
  FirmwareDesk desk;
  test::WriteContent(desk.Path, maintenance::FileOf(std::string(400, 'a'), "abc"));
  desk.Paper.OnCommand = [&](const test::Bytes& plain) {
    if (plain[0] == 170) desk.Loop.Quit();
  };
  desk.Main.StartUp('"' + desk.Path + '"');
  EXPECT_THAT(desk.Flash.Heard, ElementsAre(-1, 1));
  EXPECT_FALSE(desk.Main.TheMachine().Link.IsOpen());
  desk.Loop.Restart();
}

}  // namespace
}  // namespace morvane::shell
