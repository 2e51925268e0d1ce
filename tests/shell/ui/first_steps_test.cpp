#include <QAbstractButton>
#include <QLabel>

#include "shell/ui/main_menu_desk.h"

namespace morvane::shell {
namespace {

class FirstSteps : public MainMenuTest {
 protected:
  /// What a line shows beside its button.
  [[nodiscard]] std::string Lines() const {
    std::string text;
    for (const auto* label : test::Find<QWidget>(*menu, "FirstSteps").findChildren<QLabel*>()) {
      text += label->text().toStdString() + "\n";
    }
    return text;
  }
};

TEST_F(FirstSteps, SayHowToBeginWhileThereIsNoSet) {
  Start();
  EXPECT_TRUE(test::Visible(*menu, "FirstSteps"));
  for (const char* line :
       {"Ctrl+N\n", "Generates the boards of a new set.\n", "Ctrl+O\n",
        "Takes the boards from a file. A file can be dropped on this window, "
        "too.\n",
        "Ctrl+D\n", "Has the machine deal the boards, as soon as there is a set.\n"}) {
    EXPECT_NE(Lines().find(line), std::string::npos) << line;
  }
}

TEST_F(FirstSteps, AreGoneWhenThereIsASetAndBackWithoutOne) {
  Start();
  test::FillSet(desk.Prog.Set, 1, 2);
  ShowFigures();
  EXPECT_FALSE(test::Visible(*menu, "FirstSteps"));
  desk.Prog.Set.Clear();
  menu->RefreshSet();
  EXPECT_TRUE(test::Visible(*menu, "FirstSteps"));
}

TEST_F(FirstSteps, AreTheFlowsOfTheMenu) {
  Start();
  desk.When("cdOpen", [](QWidget& dialog) { test::Press(dialog, Qt::Key_Escape); });
  test::Click(*menu, "StepLoad");
  desk.When("Generate", [](QWidget& window) { window.close(); });
  test::Click(*menu, "StepNew");
  EXPECT_FALSE(test::Enabled(*menu, "StepDeal")) << "there is nothing to deal yet";
}

TEST_F(FirstSteps, LeaveTheKeyboardWhereItWas) {
  Start();
  desk.When("cdOpen", [](QWidget& dialog) { test::Press(dialog, Qt::Key_Escape); });
  test::Click(*menu, "StepLoad");
  EXPECT_EQ(menu->focusWidget()->objectName(), "txtEventName");
}

TEST_F(FirstSteps, TheFirstStartHasNothingToDismiss) {
  std::filesystem::remove_all(desk.Prog.Paths.Data);
  shell.KeepUnsavedSet();
  Start();
  EXPECT_TRUE(desk.Boxes.empty());
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
  EXPECT_EQ(Text("Panel1"), "Ready");
}

}  // namespace
}  // namespace morvane::shell
