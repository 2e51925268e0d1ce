#include "shell/read_service_flow.h"

#include "shell/shell_desk.h"

namespace morvane::shell {
namespace {

using maintenance::ReadService;
using test::FakeUi;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::SizeIs;

/// With a file that begins as service files do, and one that does not.
struct Desk : ShellDesk {
  explicit Desk(int level = 1) {
    Prog.ServiceLevel = level;
    test::WriteContent(File, "Service file 3/5/2019\r\n");
    test::WriteContent(Other, "Another file\r\n");
  }
  const std::string File = Folder / "Service_file_4711.txt";
  const std::string Other = Folder / "log.txt";
};

std::string Quoted(const std::string& path) { return "\"" + path + "\""; }

TEST(ReadServiceFile, NeedsNoMachineAndLogsNothing) {
  Desk desk;
  desk.Start();
  const auto before = desk.LogLines();
  desk.Desktop.OnReadService = [&](ReadService&) { EXPECT_TRUE(desk.Main.FlowActive()); };
  desk.Main.MenuReadServiceFile();
  EXPECT_THAT(desk.Desktop.ServiceFiles, ElementsAre(""));
  EXPECT_THAT(desk.Bridge.Calls, IsEmpty());
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
  EXPECT_THAT(desk.Ui.Statuses, IsEmpty());
  EXPECT_EQ(desk.LogLines(), before);
  EXPECT_FALSE(desk.Main.FlowActive());
}

TEST(ReadServiceFile, AProgramWithoutThatWindowSaysSo) {
  Desk desk;
  desk.Start();
  desk.Desktop.HasWindows = false;
  desk.Main.MenuReadServiceFile();
  EXPECT_THAT(desk.Ui.Boxes,
              ElementsAre(FakeUi::Box{"      This program has no window for service files.      ",
                                      kOkCritical, "Read Service"}));
}

TEST(ReadServiceFile, IsRefusedWhileAnotherFlowIsOpen) {
  Desk desk;
  desk.Start();
  desk.Desktop.OnEdit = [&](edit::Editor&) { desk.Main.MenuReadServiceFile(); };
  desk.Main.MenuEdit();
  EXPECT_THAT(desk.Desktop.ServiceFiles, IsEmpty());
}

TEST(ReadServiceFile, RefusesTheOtherFlowsWhileItIsOpen) {
  Desk desk;
  desk.Start();
  desk.Desktop.OnReadService = [&](ReadService&) { desk.Main.MenuEdit(); };
  desk.Main.MenuReadServiceFile();
  EXPECT_EQ(desk.Desktop.Edits, 0);
}

TEST(ReadServiceFile, IsShownByAStartThatNamesIt) {
  for (const int level : {1, 2}) {
    Desk desk(level);
    desk.Main.StartUp(Quoted(desk.File));
    EXPECT_THAT(desk.Desktop.ServiceFiles, ElementsAre(desk.File));
    EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
    EXPECT_FALSE(desk.Main.FlowActive());
    // The next load asks for its file.
    desk.Main.MenuLoad();
    EXPECT_EQ(desk.Ui.FileRequests.size(), 1U);
  }
}

TEST(ReadServiceFile, IsRefusedAsAnyOtherFileWhereThereIsNoService) {
  Desk desk(0);
  desk.Main.StartUp(Quoted(desk.File));
  EXPECT_THAT(desk.Desktop.ServiceFiles, IsEmpty());
  EXPECT_THAT(desk.Ui.Boxes, Not(IsEmpty()));
}

TEST(ReadServiceFile, IsToldByItsFirstWordsAndItsEnding) {
  Desk desk;
  test::WriteContent(desk.Folder / "A.TXT", "Service file ");
  test::WriteContent(desk.Folder / "a.pbn", "Service file ");
  test::WriteContent(desk.Folder / "mark.txt", "\xEF\xBB\xBFService file 3/5/2019");
  test::WriteContent(desk.Folder / "short.txt", "Service file");
  test::WriteContent(desk.Folder / "lower.txt", "service file 3/5/2019");
  EXPECT_TRUE(maintenance::IsServiceFile(desk.File));
  EXPECT_TRUE(maintenance::IsServiceFile(desk.Folder / "A.TXT"));
  EXPECT_TRUE(maintenance::IsServiceFile(desk.Folder / "mark.txt")) << "as the reader takes it";
  EXPECT_FALSE(maintenance::IsServiceFile(desk.Folder / "a.pbn"));
  EXPECT_FALSE(maintenance::IsServiceFile(desk.Folder / "short.txt"));
  EXPECT_FALSE(maintenance::IsServiceFile(desk.Folder / "lower.txt"));
  EXPECT_FALSE(maintenance::IsServiceFile(desk.Other));
  EXPECT_FALSE(maintenance::IsServiceFile(desk.Folder / "none.txt"));
  EXPECT_FALSE(maintenance::IsServiceFile(desk.Folder.Path()));
  EXPECT_FALSE(maintenance::IsServiceFile(""));
}

TEST(ReadServiceFile, AnotherTextIsLoadedAsBefore) {
  Desk desk;
  desk.Main.StartUp(Quoted(desk.Other));
  EXPECT_THAT(desk.Desktop.ServiceFiles, IsEmpty());
  EXPECT_THAT(desk.Desktop.Pages, SizeIs(1)) << "of the set, as behind each load";
}

TEST(ReadServiceFile, IsShownWhenTheRunningProgramIsAskedForIt) {
  Desk desk;
  desk.Start();
  desk.Main.LinkExecute("1" + desk.File);
  desk.Loop.WaitMs(2 * Shell::kTimer2Ms);
  EXPECT_THAT(desk.Desktop.ServiceFiles, ElementsAre(desk.File));
  EXPECT_THAT(desk.Desktop.Pages, IsEmpty());
  desk.Main.LinkExecute("1" + desk.Other);
  desk.Loop.WaitMs(2 * Shell::kTimer2Ms);
  EXPECT_THAT(desk.Desktop.ServiceFiles, ElementsAre(desk.File));
  EXPECT_THAT(desk.Desktop.Pages, SizeIs(1)) << "it is loaded";
}

TEST(ReadServiceFile, TheViewerThatIsOpenTakesAnother) {
  struct NoWindow final : maintenance::ReadServiceView {
    void ShowAll() override {}
  };
  Desk desk;
  desk.Start();
  const std::string second = desk.Folder / "Service_file_815.txt";
  test::WriteContent(second, "Service file 4/5/2019\r\n");
  NoWindow window;
  desk.Desktop.OnReadService = [&](ReadService& viewer) {
    viewer.Open(window, desk.File);
    desk.Main.LinkExecute("1" + second);
    desk.Loop.WaitMs(2 * Shell::kTimer2Ms);
    EXPECT_EQ(viewer.Path(), second);
    EXPECT_EQ(desk.Prog.Link.Pending, LinkRequest::kNone);
    desk.Main.LinkExecute("1" + desk.Other);
    desk.Loop.WaitMs(2 * Shell::kTimer2Ms);
    EXPECT_EQ(desk.Prog.Link.Pending, LinkRequest::kLoad) << "a board file waits";
  };
  desk.Main.MenuReadServiceFile();
}

TEST(ReadServiceFile, WaitsForTheFlowThatIsOpen) {
  Desk desk;
  desk.Start();
  desk.Desktop.OnEdit = [&](edit::Editor&) {
    desk.Main.LinkExecute("1" + desk.File);
    desk.Loop.WaitMs(2 * Shell::kTimer2Ms);
    EXPECT_THAT(desk.Desktop.ServiceFiles, IsEmpty());
  };
  desk.Main.MenuEdit();
  desk.Loop.WaitMs(2 * Shell::kTimer2Ms);
  EXPECT_THAT(desk.Desktop.ServiceFiles, ElementsAre(desk.File));
}

}  // namespace
}  // namespace morvane::shell
