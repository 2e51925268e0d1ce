#include "maintenance/maintenance.h"
#include "shell/ui/main_menu_desk.h"

// The service console from the menu until it has gone.

namespace morvane::shell {
namespace {

using ::testing::IsEmpty;

class MenuMaintenance : public MainMenuTest {
 protected:
  void SetUp() override {
    MainMenuTest::SetUp();
    Start();
  }
  void Contact() { desk.Loop.WaitMs(maintenance::Maintenance::kFirstContactMs + 500); }
};

TEST_F(MenuMaintenance, ControlAndMOpensTheWindowOverTheMainOne) {
  int opened = 0;
  desk.When("Maintenance", [&](QWidget& window) {
    ++opened;
    EXPECT_EQ(window.parentWidget(), menu.get());
    EXPECT_EQ(window.windowModality(), Qt::WindowModal);
    EXPECT_EQ(Text("Panel1"), "Maintenance");
    Contact();
    EXPECT_EQ(test::TextOf(window, "Inside_temp"), "25.3");
    test::Press(window, Qt::Key_Escape);
  });
  menu->activateWindow();
  test::Press(*menu, Qt::Key_M, Qt::ControlModifier);
  desk.Loop.Pump();
  EXPECT_EQ(opened, 1);
  EXPECT_EQ(test::TopWindow("Maintenance"), nullptr);
  EXPECT_FALSE(shell.FlowActive());
  EXPECT_EQ(Text("Panel1"), "Ready");
}

TEST_F(MenuMaintenance, NoOtherFlowStartsBehindIt) {
  desk.When("Maintenance", [this](QWidget& window) {
    for (const char* entry : {"menuNew", "menuSort", "cmdMaintenance", "menuExit"}) Trigger(entry);
    EXPECT_TRUE(shell.FlowActive());
    EXPECT_FALSE(desk.Loop.Quitting());
    window.close();
  });
  Trigger("cmdMaintenance");
  EXPECT_THAT(desk.Boxes, IsEmpty());
}

TEST_F(MenuMaintenance, GoesWithTheProgramEvenWithWhatIsNotWritten) {
  desk.When("Maintenance", [this](QWidget& window) {
    Contact();
    test::Click(window, "Ignore_flip");
    desk.Loop.Quit();
  });
  Trigger("cmdMaintenance");
  EXPECT_EQ(test::TopWindow("Maintenance"), nullptr);
  EXPECT_FALSE(shell.FlowActive());
  EXPECT_THAT(desk.Boxes, IsEmpty());
}

TEST_F(MenuMaintenance, ItOpensAgainBehindALostLink) {
  desk.When("Maintenance", [this](QWidget& /*window*/) {
    Contact();
    desk.AnswerBox(QMessageBox::Ok);
    simulated.PowerOff();
  });
  Trigger("cmdMaintenance");
  ASSERT_EQ(desk.Boxes.size(), 1U);
  EXPECT_EQ(desk.Boxes[0].Title, "Communication Error");
  EXPECT_EQ(test::TopWindow("Maintenance"), nullptr);
  simulated.PowerOn();
  desk.When("Maintenance", [this](QWidget& window) {
    Contact();
    EXPECT_EQ(test::TextOf(window, "Soft_ver"), "2.90");
    window.close();
  });
  Trigger("cmdMaintenance");
  EXPECT_EQ(desk.Boxes.size(), 1U);
}

}  // namespace
}  // namespace morvane::shell
