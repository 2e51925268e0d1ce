#include <QFileDialog>
#include <QLineEdit>

#include "shell/ui/main_menu_desk.h"

// The branches of New, by its key.

namespace morvane::shell {
namespace {

using ::testing::SizeIs;

class NewBranches : public MainMenuTest {
 protected:
  void SetUp() override {
    MainMenuTest::SetUp();
    Start();
    test::FillSet(desk.Prog.Set, 1, 8);
    desk.Prog.Set.BoardSetChanged = "1";
  }
  void Press() {
    menu->activateWindow();  // as window managers do behind a box
    desk.Loop.Pump();
    test::Press(*menu, Qt::Key_N, Qt::ControlModifier);
  }
  /// `Generate` comes up, makes 32 boards by Enter and is left.
  void ExpectGenerate() {
    desk.When("Generate", [](QWidget& window) {
      test::Press(window, Qt::Key_Return);
      window.close();
    });
  }
  [[nodiscard]] std::string Numbers() const {
    return Text("txtFirstBoard") + " " + Text("txtLastBoard");
  }
};

TEST_F(NewBranches, NoGivesTheOldSetUp) {
  desk.AnswerBox(QMessageBox::No);
  ExpectGenerate();
  Press();
  ASSERT_THAT(desk.Boxes, SizeIs(1));
  EXPECT_EQ(desk.Boxes[0].Title, "Generate New Board Set");
  EXPECT_EQ(desk.Boxes[0].Text,
            "Current Board Set has not been saved.\n\nDo you want to save the current Board Set?");
  EXPECT_EQ(Numbers(), "1 32");
  EXPECT_EQ(Text("Panel1"), "Ready");
}

TEST_F(NewBranches, CancelAndEscapeLeaveItAlone) {
  desk.AnswerBox(QMessageBox::Cancel);
  Press();
  desk.When("MessageBox", [](QWidget& box) { test::Press(box, Qt::Key_Escape); });
  Press();
  EXPECT_EQ(desk.Prog.Set.LastBoard, 8);
  EXPECT_EQ(Text("Panel1"), "Ready");
  EXPECT_FALSE(shell.FlowActive());
}

TEST_F(NewBranches, YesSavesFirst) {
  const std::string path = desk.Folder / "evening.pbn";
  desk.AnswerBox(QMessageBox::Yes);
  desk.When("cdSave", [&](QWidget& dialog) {
    test::Find<QLineEdit>(dialog, "fileNameEdit").setText(QString::fromStdString(path));
    test::Press(dialog, Qt::Key_Return);
  });
  ExpectGenerate();
  Press();
  EXPECT_TRUE(std::filesystem::exists(path));
  EXPECT_EQ(Numbers(), "1 32");
  EXPECT_EQ(Text("txtFileName"), "");
}

TEST_F(NewBranches, YesGoesOnThoughTheSaveIsCancelled) {
  desk.AnswerBox(QMessageBox::Yes);
  desk.When("cdSave", [](QWidget& dialog) { test::Press(dialog, Qt::Key_Escape); });
  ExpectGenerate();
  Press();
  EXPECT_EQ(Numbers(), "1 32");
}

TEST_F(NewBranches, IsRefusedWhileAnAnalysisRuns) {
  desk.Prog.AnalysisRunning = true;
  desk.AnswerBox(QMessageBox::Ok);
  Press();
  ASSERT_THAT(desk.Boxes, SizeIs(1));
  EXPECT_EQ(desk.Boxes[0].Title, "New Error");
  EXPECT_EQ(desk.Prog.Set.LastBoard, 8);
}

}  // namespace
}  // namespace morvane::shell
