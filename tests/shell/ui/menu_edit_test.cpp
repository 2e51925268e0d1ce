#include "edit/board_text.h"
#include "shell/ui/main_menu_desk.h"

// The editor from the menu until its window has gone.

namespace morvane::shell {
namespace {

using edit::Editor;
using ::testing::IsEmpty;
using ::testing::SizeIs;

class MenuEditWindow : public MainMenuTest {
 protected:
  void SetUp() override {
    MainMenuTest::SetUp();
    Start();
    test::FillSet(desk.Prog.Set, 1, 3);
  }
  void InTheEditor(std::function<void(QWidget&)> act) { desk.When("Edit", std::move(act)); }
};

TEST_F(MenuEditWindow, AKeyOpensItAndItsWorkIsSeenAfterwards) {
  InTheEditor([this](QWidget& window) {
    EXPECT_EQ(Text("Panel1"), "Edit Board");
    EXPECT_TRUE(window.isModal());
    EXPECT_FALSE(test::Find<QAction>(*menu, "menuEdit").isEnabled());
    EXPECT_FALSE(menu->close()) << "not while it is open";
    shell.MenuLoad();
    shell.MenuEdit();
    test::Click(window, "cmdDelete");
    test::Press(window, Qt::Key_Escape);
  });
  test::Press(*menu, Qt::Key_E, Qt::ControlModifier);
  desk.Loop.Pump();
  EXPECT_EQ(test::TopWindow("Edit"), nullptr);
  EXPECT_EQ(Text("txtCount"), "2");
  EXPECT_EQ(Text("Panel1"), "Ready");
  EXPECT_THAT(desk.Boxes, IsEmpty());
  EXPECT_TRUE(menu->isWindowModified());
}

TEST_F(MenuEditWindow, LookingOnChangesNothing) {
  InTheEditor([](QWidget& window) {
    test::Press(window, Qt::Key_PageDown);
    test::Press(window, Qt::Key_Escape);
  });
  Trigger("menuEdit");
  EXPECT_EQ(desk.Prog.Set.CurrentBoard, 2) << "the next run goes on there";
  EXPECT_FALSE(menu->isWindowModified());
}

TEST_F(MenuEditWindow, MakesBoard1WhereThereIsNoSet) {
  desk.Prog.Set = BoardSet{};
  InTheEditor([](QWidget& window) {
    EXPECT_EQ(test::TextOf(window, "lblBoard"), "1 of 1 - 1");
    EXPECT_EQ(test::TextOf(window, "lblCnt_1"), "0 \u2717 13 missing");
    test::Press(window, Qt::Key_Escape);
  });
  Trigger("menuEdit");
  EXPECT_EQ(Text("txtCount"), "1");
  EXPECT_FALSE(menu->isWindowModified());
}

TEST_F(MenuEditWindow, GoesWithTheProgramAndAsksNothing) {
  InTheEditor([this](QWidget& window) {
    test::Type(window, "akq");
    desk.Loop.Quit();
  });
  Trigger("menuEdit");
  EXPECT_EQ(test::TopWindow("Edit"), nullptr);
  EXPECT_THAT(desk.Boxes, IsEmpty());
  EXPECT_EQ(edit::SuitText(desk.Prog.Set.At(1), 0), "J73") << "nothing was accepted";
  EXPECT_EQ(Text("Panel1"), "Ready");
}

TEST_F(MenuEditWindow, GoesWithTheProgramFromItsQuestion) {
  InTheEditor([this](QWidget& window) {
    test::Type(window, "akq");
    desk.When("MessageBox", [this](QWidget&) { desk.Loop.Quit(); });
    test::Press(window, Qt::Key_Escape);
  });
  Trigger("menuEdit");
  EXPECT_EQ(test::TopWindow("Edit"), nullptr);
  EXPECT_THAT(desk.Boxes, SizeIs(1));
}

TEST_F(MenuEditWindow, WhileAnAnalysisRunsBoardsAreLookedAtButNotChanged) {
  InTheEditor([this](QWidget& window) {
    desk.Prog.AnalysisRunning = true;
    desk.AnswerBox(QMessageBox::Ok);
    test::Click(window, "cmdDelete");
    test::Click(window, "cmdNext");
    EXPECT_EQ(test::TextOf(window, "lblBoard"), "2 of 1 - 3");
    desk.Prog.AnalysisRunning = false;
    test::Press(window, Qt::Key_Escape);
  });
  Trigger("menuEdit");
  ASSERT_THAT(desk.Boxes, SizeIs(1));
  EXPECT_EQ(desk.Boxes[0].Title, "Edit Error");
}

TEST_F(MenuEditWindow, TheHeldBoardIsThereTheNextTime) {
  InTheEditor([](QWidget& window) {
    test::Click(window, "cmdCopy");
    test::Press(window, Qt::Key_Escape);
  });
  Trigger("menuEdit");
  InTheEditor([](QWidget& window) {
    EXPECT_TRUE(test::Visible(window, "lblClip"));
    test::Click(window, "cmdPaste");
    test::Press(window, Qt::Key_Escape);
  });
  Trigger("menuEdit");
  EXPECT_EQ(Text("txtCount"), "4");
}

}  // namespace
}  // namespace morvane::shell
