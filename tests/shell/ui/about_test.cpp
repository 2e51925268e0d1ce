#include "shell/ui/about.h"

#include <QAbstractButton>
#include <QLabel>
#include <QLineEdit>

#include "shell/ui/main_menu_desk.h"

namespace morvane::shell {
namespace {

using ::testing::ElementsAre;

class About : public MainMenuTest {
 protected:
  QWidget& Open() {
    Start();
    Trigger("menuAbout");
    desk.Loop.Pump();
    return *test::TopWindow("About");
  }
};

TEST_F(About, SaysWhatTheProgramIsAndWhatItStandsOn) {
  const QWidget& window = Open();
  EXPECT_EQ(test::TextOf(window, "lblName"), "Morvane");
  EXPECT_EQ(test::TextOf(window, "lblVersion"), "Version 1.0 with Sort 1.0 with Poker 1.5");
  EXPECT_EQ(test::TextOf(window, "lblLibraries"), "Qt 6.4.2\nlibusb 1.0.26");
  EXPECT_EQ(test::TextOf(window, "txtData"), desk.Prog.Paths.Data);
  EXPECT_EQ(window.windowModality(), Qt::WindowModal);
}

TEST_F(About, OpensTheFoldersOfDataAndSettings) {
  const QWidget& window = Open();
  test::Click(window, "ShowData");
  test::Click(window, "ShowSettings");
  EXPECT_THAT(around.Shown, ElementsAre(desk.Prog.Paths.Data, desk.Folder / ""));
}

TEST_F(About, SaysWhichKeyOfTheRegistryHasTheSettingsAndOpensNoFolderForIt) {
  Program keyed{
      {desk.Ui, desk.Loop, desk.Clock, desk.Store, desk.Random, desk.Speaker, desk.ThePrinter},
      {desk.Folder.Path(), desk.Folder / "data", "", "HKEY_CURRENT_USER\\Software\\morvane.exe"}};
  Help ofKeyed{keyed, shell.TheMachine(), around, {"simulated", {}}};
  Start();
  AboutWindow window(ofKeyed, menu.get());
  EXPECT_EQ(test::TextOf(window, "txtSettings"), "HKEY_CURRENT_USER\\Software\\morvane.exe");
  EXPECT_EQ(window.findChild<QAbstractButton*>("ShowSettings"), nullptr);
  EXPECT_NE(window.findChild<QAbstractButton*>("ShowData"), nullptr);
}

TEST_F(About, SaysThatNoProgramShowsAFolder) {
  const QWidget& window = Open();
  around.Shows = false;
  desk.When("MessageBox", [](QWidget& box) { box.close(); });
  test::Click(window, "ShowData");
  desk.Loop.Pump();
  ASSERT_EQ(desk.Boxes.size(), 1U);
  EXPECT_EQ(desk.Boxes[0].Text,
            "No program could be started that shows the folder\n" + desk.Prog.Paths.Data);
}

TEST_F(About, CopiesTheDiagnosis) {
  test::Click(Open(), "Diagnosis");
  EXPECT_TRUE(around.Copied.starts_with("Diagnosis of "));
}

TEST_F(About, EveryTextCanBeReachedAndCopiedByKeys) {
  QWidget& window = Open();
  std::set<std::string> reached;
  for (int tab = 0; tab < 20; ++tab) {
    test::Press(window, Qt::Key_Tab);
    reached.insert(window.focusWidget()->objectName().toStdString());
  }
  for (const char* name : {"lblName", "lblVersion", "lblLibraries", "txtData", "ShowData",
                           "txtSettings", "ShowSettings", "Guide", "Diagnosis", "Close"}) {
    EXPECT_EQ(reached.count(name), 1U) << name;
  }
}

TEST_F(About, GoesWithEscapeAndIsThereOnce) {
  QWidget& window = Open();
  Trigger("menuAbout");
  desk.Loop.Pump();
  EXPECT_EQ(menu->findChildren<QWidget*>("About").size(), 1);
  test::Press(window, Qt::Key_Escape);
  desk.Loop.Pump();
  EXPECT_EQ(test::TopWindow("About"), nullptr);
  EXPECT_EQ(menu->findChildren<QWidget*>("About").size(), 0);
}

TEST_F(About, DoesNotHoldUpTheProgramsEnd) {
  Open();
  desk.Loop.Quit();
  menu.reset();
  EXPECT_EQ(test::TopWindow("About"), nullptr);
}

}  // namespace
}  // namespace morvane::shell
