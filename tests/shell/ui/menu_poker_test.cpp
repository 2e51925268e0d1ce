#include <QAbstractButton>

#include "machine/machine_run.h"
#include "shell/ui/main_menu_desk.h"

// The poker window from the menu until it has gone.

namespace morvane::shell {
namespace {

using ::testing::IsEmpty;

class MenuPoker : public MainMenuTest {
 protected:
  void SetUp() override {
    MainMenuTest::SetUp();
    Start();
  }
  void Contact() { desk.Loop.WaitMs(machine::MachineRun::kFirstContactMs + 100); }
  void CreateAndRun(QWidget& window) {
    Contact();
    test::Find<QAbstractButton>(window, "Generate").click();
    test::Press(window, Qt::Key_Return);
  }
};

TEST_F(MenuPoker, ControlAndKOpensTheWindowOverTheMainOne) {
  int opened = 0;
  desk.When("Poker", [&](QWidget& window) {
    ++opened;
    EXPECT_EQ(window.parentWidget(), menu.get());
    EXPECT_EQ(window.windowModality(), Qt::WindowModal);
    Contact();
    EXPECT_EQ(test::TextOf(window, "txtStatus"), "Idle");
    test::Press(window, Qt::Key_Escape);
  });
  menu->activateWindow();
  test::Press(*menu, Qt::Key_K, Qt::ControlModifier);
  desk.Loop.Pump();
  EXPECT_EQ(opened, 1);
  EXPECT_EQ(test::TopWindow("Poker"), nullptr);
  EXPECT_FALSE(shell.FlowActive());
  EXPECT_EQ(Text("Panel1"), "Ready");
}

TEST_F(MenuPoker, NoOtherFlowStartsBehindIt) {
  desk.When("Poker", [this](QWidget& window) {
    for (const char* entry : {"menuNew", "menuSort", "menuPoker", "menuExit"}) Trigger(entry);
    EXPECT_TRUE(shell.FlowActive());
    EXPECT_FALSE(desk.Loop.Quitting());
    window.close();
  });
  Trigger("menuPoker");
  EXPECT_THAT(desk.Boxes, IsEmpty());
}

TEST_F(MenuPoker, TheOrderGoesWithTheWindowAndTheBridgeSetStays) {
  test::FillSet(desk.Prog.Set, 1, 3);
  const auto before = std::make_unique<BoardSet>(desk.Prog.Set);
  desk.When("Poker", [this](QWidget& window) {
    CreateAndRun(window);
    EXPECT_TRUE(test::Enabled(window, "SecondDeal"));
    test::Press(window, Qt::Key_Escape);
  });
  Trigger("menuPoker");
  desk.When("Poker", [](QWidget& window) {
    EXPECT_EQ(test::TextOf(window, "Deal_label"), "No order");
    window.close();
  });
  Trigger("menuPoker");
  for (int board = 1; board <= 3; ++board) {
    EXPECT_EQ(desk.Prog.Set.At(board).Cards, before->At(board).Cards);
  }
  EXPECT_EQ(desk.Prog.Set.BoardSetChanged, before->BoardSetChanged);
}

TEST_F(MenuPoker, GoesWithTheProgramInTheMiddleOfARun) {
  int quits = 0;
  desk.When("Poker", [&](QWidget& window) {
    desk.Loop.After(8000, [&] {
      ++quits;
      EXPECT_EQ(test::TextOf(window, "txtStatus"), "Busy");
      desk.Loop.Quit();
    });
    CreateAndRun(window);
  });
  Trigger("menuPoker");
  EXPECT_EQ(test::TopWindow("Poker"), nullptr);
  EXPECT_FALSE(shell.FlowActive());
  EXPECT_EQ(quits, 1);
  EXPECT_THAT(desk.Boxes, IsEmpty());
  EXPECT_FALSE(simulated.Busy());
}

TEST_F(MenuPoker, GoesWithTheProgramBetweenTwoRuns) {
  desk.When("Poker", [this](QWidget& window) {
    CreateAndRun(window);
    EXPECT_TRUE(test::Enabled(window, "SecondDeal"));
    desk.Loop.Quit();
  });
  Trigger("menuPoker");
  EXPECT_EQ(test::TopWindow("Poker"), nullptr);
  EXPECT_FALSE(shell.FlowActive());
}

}  // namespace
}  // namespace morvane::shell
