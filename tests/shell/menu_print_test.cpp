#include "print/hand_record.h"
#include "shell/shell_desk.h"

namespace morvane::shell {
namespace {

using print::HandRecord;
using test::FakeUi;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(MenuPrint, ShowsTheDialogOverTheSet) {
  ShellDesk desk;
  desk.Start();
  test::FillSet(desk.Prog.Set, 3, 4);
  desk.Desktop.OnHandRecord = [&](HandRecord& dialog) {
    EXPECT_TRUE(desk.Main.FlowActive());
    EXPECT_THAT(desk.Ui.Statuses, ElementsAre("Printing"));
    EXPECT_EQ(dialog.Text(print::HandRecordBox::kFromBoard), "3");
    desk.Main.MenuPrint();
    desk.Main.MenuEdit();
    EXPECT_FALSE(desk.Main.Exit());
    dialog.cmdExit();
  };
  desk.Main.MenuPrint();
  EXPECT_EQ(desk.Desktop.HandRecords, 1) << "once, though it was asked for twice";
  EXPECT_EQ(desk.Desktop.Edits, 0);
  EXPECT_THAT(desk.Ui.Statuses, ElementsAre("Printing", "Ready"));
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
  EXPECT_FALSE(desk.Main.FlowActive());
  EXPECT_FALSE(desk.Prog.Set.Changed());
}

TEST(MenuPrint, WithoutASetIsRefused) {
  ShellDesk desk;
  desk.Start();
  desk.Main.MenuPrint();
  const std::string text = "      Board Set does not exist. Request ignored!      ";
  EXPECT_EQ(desk.Desktop.HandRecords, 0);
  EXPECT_THAT(desk.Ui.Boxes, ElementsAre(FakeUi::Box{text, kOkCritical, "Printing Error"}));
  EXPECT_THAT(desk.Ui.Statuses, ElementsAre(text, "Ready"));
}

TEST(MenuPrint, GoesOnWhileAnAnalysisRuns) {
  ShellDesk desk;
  desk.Start();
  test::FillSet(desk.Prog.Set, 1, 1);
  desk.Prog.AnalysisRunning = true;
  desk.Main.MenuPrint();
  EXPECT_EQ(desk.Desktop.HandRecords, 1);
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
}

TEST(MenuPrint, AProgramWithoutTheWindowSaysSo) {
  ShellDesk desk;
  desk.Start();
  test::FillSet(desk.Prog.Set, 1, 1);
  desk.Desktop.HasWindows = false;
  desk.Main.MenuPrint();
  EXPECT_THAT(desk.Ui.Boxes,
              ElementsAre(FakeUi::Box{"      This program has no window for printing.      ",
                                      kOkCritical, "Printing Error"}));
  EXPECT_EQ(desk.Ui.Statuses.back(), "Ready");
}

TEST(MenuPrint, AFileToLoadWaitsUntilItIsClosed) {
  ShellDesk desk;
  desk.Start();
  test::FillSet(desk.Prog.Set, 1, 1);
  desk.Desktop.OnHandRecord = [&](HandRecord&) {
    desk.Programs.Call("1none.pbn");
    desk.Loop.WaitMs(1000);
    EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
  };
  desk.Main.MenuPrint();
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
  desk.Loop.WaitMs(2 * Shell::kTimer2Ms);
  EXPECT_THAT(desk.Ui.Boxes, ::testing::SizeIs(1)) << "then it is tried, and is not there";
}

}  // namespace
}  // namespace morvane::shell
