#include <QAbstractButton>
#include <QApplication>
#include <QLineEdit>
#include <QMenuBar>
#include <QTreeWidget>

#include "shell/ui/main_menu_desk.h"

namespace morvane::shell {
namespace {

using ::testing::ElementsAre;

using Menu = MainMenuTest;
using EventTexts = MainMenuTest;
using TheSet = MainMenuTest;
using Front = MainMenuTest;
using Exit = MainMenuTest;
using Place = MainMenuTest;

TEST_F(Menu, StandsInItsOrderWithNamesAndCaptions) {
  EXPECT_EQ(Entries(*menu->menuBar()),
            "menuFile \"&File\" [menuNew \"&New\", menuLoad \"&Load\", "
            "menuImport \"&Import PBN\", menuSave \"&Save\", divRecent, "
            "menuRecent1 \"\", menuRecent2 \"\", menuRecent3 \"\", menuRecent4 \"\", "
            "menuRecent5 \"\", menuRecent6 \"\", menuRecent7 \"\", menuRecent8 \"\", "
            "div1, menuExit \"E&xit\"], "
            "menuDeal \"&Deal\", menuRead \"&Read\", menuSort \"S&ort\", menuEdit \"&Edit\", "
            "Analize \"&Analyze\", menuPrint \"&Print\", "
            "cmdMaintenance_direct \"&Maintenance\" [cmdMaintenance \"&Maintenance\", "
            "Read_Service_File \"&Read Service File\"], "
            "menuPoker \"Po&ker\", cmdSetup \"&Setup\" [cmdPref \"&Preferences\"], "
            "menuHelp \"He&lp\" [menuContents \"&Contents\", "
            "menuErrorCodes \"&Error Codes\", menuDiagnosis \"Copy &Diagnosis\", divAbout, "
            "menuAbout \"&About Morvane\"]");
}

TEST_F(Menu, EntriesThatAreSeenCanBeUsed) {
  std::vector<std::string> enabled;
  for (const QAction* entry : menu->findChildren<QAction*>()) {
    if (entry->isEnabled() && entry->isVisible() && entry->menu() == nullptr &&
        !entry->isSeparator() && !entry->objectName().isEmpty()) {
      enabled.push_back(entry->objectName().toStdString());
    }
  }
  EXPECT_THAT(enabled, ElementsAre("menuNew", "menuLoad", "menuImport", "menuSave", "menuExit",
                                   "menuDeal", "menuRead", "menuSort", "menuEdit", "Analize",
                                   "menuPrint", "cmdMaintenance", "menuPoker", "cmdPref",
                                   "menuContents", "menuErrorCodes", "menuDiagnosis", "menuAbout"));
}

TEST_F(Menu, ServiceFilesAreForServiceBuilds) {
  EXPECT_EQ(test::Find<QAction>(*menu, "Read_Service_File").isVisible(), MORVANE_SERVICE_LEVEL > 0);
  desk.Prog.ServiceLevel = 1;
  const MainMenu service(desk.Prog, shell, help);
  EXPECT_TRUE(test::Find<QAction>(service, "Read_Service_File").isVisible());
}

TEST_F(Menu, TheWindowSaysWhatItIs) {
  Start();
  EXPECT_TRUE(menu->isVisible());
  EXPECT_EQ(menu->windowTitle(), "Morvane - Main Menu[*]");
  EXPECT_EQ(Text("lblVersion"), "Morvane  ver: 1.0 with Sort 1.0  with Poker 1.5 ");
  EXPECT_EQ(Text("Panel1"), "Ready");
  EXPECT_EQ(menu->focusWidget()->objectName(), "txtEventName");
}

TEST_F(Menu, EveryBoxHasItsToolTip) {
  const std::vector<std::pair<const char*, const char*>> tips{
      {"txtFileName", "File name of the current Board Set"},
      {"txtEventDate", "Enter Event Date here"},
      {"txtEventSite", "Enter Event Site Name here"},
      {"txtEventName", "Enter Event Name here"},
      {"txtFirstBoard", "First Board Number of the set"},
      {"txtLastBoard", "Last Board Number of the set"},
      {"txtCompleted", "Number of completed boards in a set."},
      {"lbxShapes", "Actual and expected Hand shapes"},
      {"txtMaxFreq", "Maximum card frequency for any Hand (ave 25%)"},
      {"txtMinFreq", "Minimum card frequency for any Hand (ave 25%)"},
      {"txtInDeals", "Board numbers for similar hands within the current set"},
      {"txtCount", "Number of boards in a set."},
      {"HandStat", "Hands statistic"}};
  for (const auto& [name, tip] : tips) {
    EXPECT_EQ(test::Find<QWidget>(*menu, name).toolTip(), tip) << name;
  }
}

TEST_F(Menu, TheListViewsHaveTheirColumns) {
  const auto captions = [this](const char* name) {
    const auto& view = test::Find<QTreeWidget>(*menu, name);
    std::vector<std::string> texts;
    for (int i = 0; i < view.columnCount(); ++i) {
      texts.push_back(view.headerItem()->text(i).toStdString());
    }
    return texts;
  };
  EXPECT_THAT(captions("lbxShapes"), ElementsAre("Shape", "Actual", "Expected", "Diffrence"));
  EXPECT_THAT(captions("HandStat"),
              ElementsAre("Hand:", "   N   ", "   S   ", "   E   ", "   W   ", "  NS  ", "  EW  "));
}

TEST_F(Menu, TheTabKeyWalksFromBoxToBox) {
  desk.Store.Set(kDealShow, "1");
  Start();
  for (const char* name : {"txtEventSite", "txtEventDate", "txtFileName", "txtFirstBoard",
                           "txtLastBoard", "txtCount", "txtCompleted", "ShowStat", "HandStat",
                           "txtMaxFreq", "txtMinFreq", "txtInDeals", "lbxShapes", "txtEventName"}) {
    test::Press(*menu, Qt::Key_Tab);
    EXPECT_EQ(menu->focusWidget()->objectName().toStdString(), name);
  }
}

TEST_F(EventTexts, GoIntoTheSetWithEachKey) {
  Start();
  test::Type(*menu, "Spring");
  Enter("txtEventSite");
  test::Type(*menu, "Club");
  Enter("txtEventDate");
  test::Type(*menu, "3.3.");
  EXPECT_EQ(desk.Prog.Set.EventName, "Spring");
  EXPECT_EQ(desk.Prog.Set.EventSite, "Club");
  EXPECT_EQ(desk.Prog.Set.EventDate, "3.3.");
  EXPECT_EQ(desk.Prog.Set.BoardSetChanged, "1");
  EXPECT_TRUE(menu->isWindowModified());
}

TEST_F(EventTexts, The201stCharacterIsRefusedAndTheCaretStaysBeforeIt) {
  desk.Prog.Set.EventName = std::string(199, 'a');
  Start();
  auto& box = test::Find<QLineEdit>(*menu, "txtEventName");
  test::Press(*menu, Qt::Key_End);
  test::Type(*menu, "b");
  EXPECT_EQ(desk.Prog.Set.EventName, std::string(199, 'a') + "b");
  desk.Prog.Set.BoardSetChanged = "0";
  test::Type(*menu, "c");
  EXPECT_EQ(Text("txtEventName"), std::string(199, 'a') + "b");
  EXPECT_EQ(desk.Prog.Set.EventName, std::string(199, 'a') + "b");
  EXPECT_EQ(box.cursorPosition(), 200);
  EXPECT_EQ(desk.Prog.Set.BoardSetChanged, "1") << "all the same: required";
  test::Press(*menu, Qt::Key_Home);
  test::Type(*menu, "c");
  EXPECT_EQ(box.cursorPosition(), 0);
}

TEST_F(EventTexts, FromAFileAreShownWhole) {
  Start();
  desk.Prog.Set.EventName = std::string(250, 'x');
  menu->RefreshSet();
  EXPECT_EQ(Text("txtEventName"), std::string(250, 'x'));
  EXPECT_EQ(desk.Prog.Set.BoardSetChanged, "0");
}

TEST_F(TheSet, IsShownWithItsNumbers) {
  Start();
  for (const char* name : {"txtFirstBoard", "txtLastBoard", "txtCount", "txtCompleted"}) {
    EXPECT_EQ(Text(name), "") << name;
  }
  test::FillSet(desk.Prog.Set, 5, 12);
  desk.Prog.Set.At(7).Cards[1] = 0;
  AnalyzeBoard(desk.Prog.Set.At(7));
  desk.Prog.Set.BoardSetFile = "/sets/evening.pbn";
  desk.Prog.Operator.RefreshSet();
  ShowFigures();
  EXPECT_EQ(Text("txtFirstBoard"), "5");
  EXPECT_EQ(Text("txtLastBoard"), "12");
  EXPECT_EQ(Text("txtCount"), "8");
  EXPECT_EQ(Text("txtCompleted"), "7");
  EXPECT_EQ(Text("txtFileName"), "/sets/evening.pbn");
}

TEST_F(TheSet, IsMarkedUntilItIsSaved) {
  Start();
  EXPECT_FALSE(menu->isWindowModified());
  desk.Prog.Set.BoardSetChanged = "1";
  desk.Prog.Operator.RefreshSet();
  EXPECT_TRUE(menu->isWindowModified());
}

TEST_F(TheSet, StatisticsAreShownAndHiddenByTheirButton) {
  Start();
  EXPECT_EQ(Text("ShowStat"), "&Show Statistics");
  EXPECT_FALSE(test::Visible(*menu, "HandStat") || test::Visible(*menu, "lbxShapes"));
  test::Click(*menu, "ShowStat");
  EXPECT_EQ(Text("ShowStat"), "&Hide Statistics");
  EXPECT_TRUE(test::Visible(*menu, "HandStat") && test::Visible(*menu, "lbxShapes"));
  test::Click(*menu, "ShowStat");
  EXPECT_FALSE(test::Visible(*menu, "HandStat"));
}

TEST_F(TheSet, StatisticsAreShownFromTheStartWhereThatIsStored) {
  desk.Store.Set(kDealShow, "1");
  Start();
  EXPECT_EQ(Text("ShowStat"), "&Hide Statistics");
  EXPECT_TRUE(test::Visible(*menu, "HandStat"));
}

TEST_F(Front, AWindowOfAnotherProgramIsNotOverItAnyMore) {
  Start();
  QWidget other;
  other.show();
  other.activateWindow();
  desk.Loop.Pump();
  ASSERT_FALSE(menu->isActiveWindow());
  windows.BringToFront();
  desk.Loop.Pump();
  EXPECT_TRUE(menu->isActiveWindow());
}

TEST_F(Front, AMinimizedWindowIsOpenAgainAndAMaximizedOneStaysThat) {
  Start();
  menu->showMaximized();
  menu->showMinimized();
  desk.Loop.Pump();
  ASSERT_TRUE(menu->isMinimized());
  windows.BringToFront();
  desk.Loop.Pump();
  EXPECT_FALSE(menu->isMinimized());
  EXPECT_TRUE(menu->isMaximized());
}

TEST_F(Front, ABoxStaysOverTheMainWindow) {
  Start();
  QWidget other;
  other.show();
  desk.When("MessageBox", [&](QWidget& box) {
    other.activateWindow();
    desk.Loop.Pump();
    windows.BringToFront();
    desk.Loop.Pump();
    EXPECT_TRUE(box.isActiveWindow());
    box.close();
  });
  desk.Ui.MessageBox("text", kOkCritical, "title");
}

TEST_F(Front, AWindowThatIsNotShownYetStaysHidden) {
  windows.BringToFront();
  desk.Loop.Pump();
  EXPECT_FALSE(menu->isVisible());
}

TEST_F(Exit, EndsTheProgram) {
  Start();
  Trigger("menuExit");
  EXPECT_FALSE(menu->isVisible());
  EXPECT_TRUE(desk.Loop.Quitting());
}

TEST_F(Exit, WithUnsavedChangesAndCancelTheWindowStays) {
  Start();
  desk.Prog.Set.BoardSetChanged = "1";
  desk.AnswerBox(QMessageBox::Cancel);
  menu->close();
  EXPECT_EQ(desk.Boxes.at(0).Title, "Exit");
  EXPECT_TRUE(menu->isVisible());
  EXPECT_FALSE(desk.Loop.Quitting());
}

TEST_F(Exit, WithUnsavedChangesAndNoItEnds) {
  Start();
  desk.Prog.Set.BoardSetChanged = "1";
  desk.AnswerBox(QMessageBox::No);
  menu->close();
  EXPECT_TRUE(desk.Loop.Quitting());
}

TEST_F(Place, IsRememberedFromOneStartToTheNext) {
  Start();
  menu->resize(750, 555);
  menu->close();
  const MainMenu again(desk.Prog, shell, help);
  EXPECT_EQ(again.size(), QSize(750, 555));
}

TEST_F(Place, ADamagedOneIsIgnored) {
  desk.Store.Set({"Window", "MainMenu", ""}, "no place");
  const MainMenu again(desk.Prog, shell, help);
  EXPECT_GE(again.width(), again.minimumSizeHint().width());
}

TEST_F(Place, TheTextBoxesGrowWithTheWindowAndTheDateUpTo500) {
  Start();
  const auto width = [this](const char* name) { return test::Find<QWidget>(*menu, name).width(); };
  menu->resize(600, 400);
  desk.Loop.Pump();
  const int narrow = width("txtEventName");
  EXPECT_EQ(width("txtEventDate"), narrow);
  menu->resize(1200, 400);
  desk.Loop.Pump();
  EXPECT_EQ(width("txtEventName"), narrow + 600);
  EXPECT_EQ(width("txtEventSite"), narrow + 600);
  EXPECT_EQ(width("txtFileName"), narrow + 600);
  EXPECT_EQ(width("txtEventDate"), 500);
}

}  // namespace
}  // namespace morvane::shell
