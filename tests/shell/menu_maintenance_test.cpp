#include "maintenance/maintenance.h"
#include "shell/shell_desk.h"

namespace morvane::shell {
namespace {

using maintenance::Maintenance;
using test::FakeUi;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::SizeIs;

TEST(MenuMaintenance, OpensTheLinkWithItsOwnTimeOutAndClosesItBehindTheWindow) {
  ShellDesk desk;
  desk.Start();
  desk.Desktop.OnMaintenance = [&](Maintenance& console) {
    EXPECT_TRUE(desk.Main.FlowActive());
    desk.Loop.After(100, [&] { console.Exit(); });
  };
  desk.Main.MenuMaintenance();
  EXPECT_THAT(desk.Ui.Statuses, ElementsAre("Maintenance", "Ready"));
  EXPECT_THAT(desk.Bridge.Calls, Contains("SetTimeouts 400 400"));
  EXPECT_EQ(desk.Bridge.Calls.back(), "Close");
  EXPECT_FALSE(desk.Main.TheMachine().Link.IsOpen());
  EXPECT_EQ(desk.LastLine(), " Maintenance: 3:04:05 PM");
  EXPECT_FALSE(desk.Main.FlowActive());
}

TEST(MenuMaintenance, WithoutALinkThereIsNoWindow) {
  ShellDesk desk;
  desk.Start();
  desk.Bridge.FailingCall = "Open";
  desk.Ui.Answers = {kCancel};
  int opened = 0;
  desk.Desktop.OnMaintenance = [&](Maintenance&) { ++opened; };
  desk.Main.MenuMaintenance();
  EXPECT_EQ(opened, 0);
  EXPECT_THAT(desk.Ui.Boxes, SizeIs(1));
  EXPECT_THAT(desk.LogLines(), Not(Contains(" Maintenance: 3:04:05 PM")));
  EXPECT_THAT(desk.Ui.Statuses, ElementsAre("Maintenance", "Ready"));
}

TEST(MenuMaintenance, AProgramWithoutThatWindowSaysSoAndLetsTheMachineGo) {
  ShellDesk desk;
  desk.Start();
  desk.Desktop.HasWindows = false;
  desk.Main.MenuMaintenance();
  EXPECT_THAT(desk.Ui.Boxes,
              ElementsAre(FakeUi::Box{"      This program has no window for the service.      ",
                                      kOkCritical, "Maintenance"}));
  EXPECT_FALSE(desk.Main.TheMachine().Link.IsOpen());
}

TEST(MenuMaintenance, EndsWithTheProgram) {
  ShellDesk desk;
  desk.Start();
  desk.Desktop.OnMaintenance = [&](Maintenance&) {
    desk.Loop.After(100, [&] { desk.Loop.Quit(); });
  };
  desk.Main.MenuMaintenance();
  EXPECT_FALSE(desk.Main.TheMachine().Link.IsOpen());
  EXPECT_THAT(desk.Bridge.Sent, IsEmpty());
}

}  // namespace
}  // namespace morvane::shell
