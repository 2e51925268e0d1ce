#include "shell/ui/main_menu.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QTreeWidget>

#include "shell/ui/qt_windows.h"
#include "simulator/simulated_machine.h"
#include "support/qt_desk.h"

namespace morvane::shell {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

/// The whole desktop program but for its `main`, on a simulated machine.
class MainMenuTest : public ::testing::Test {
 protected:
  test::QtDesk desk;
  simulator::SimulatedMachine simulated{simulator::Options(), desk.Clock};
  QtWindows windows{desk.Prog};
  LoneInstance alone;
  Shell shell{desk.Prog, simulated, windows, alone};
  std::unique_ptr<MainMenu> menu = std::make_unique<MainMenu>(desk.Prog, shell);

  void SetUp() override {
    windows.SetMainMenu(*menu);
    desk.Ui.SetMainWindow(menu->ForUi());
  }
  void Start(const std::string& commandLine = "") {
    shell.StartUp(commandLine);
    desk.Loop.Pump();
  }
  void Trigger(const char* entry) { test::Find<QAction>(*menu, entry).trigger(); }
  [[nodiscard]] std::string Text(const char* name) const { return test::TextOf(*menu, name); }
  void Enter(const char* box) { test::Click(*menu, box); }

  /// What stands in a menu: name and caption of each entry, its submenu's in brackets.
  static std::string Entries(const QWidget& menuOrBar) {
    std::string text;
    for (const QAction* entry : menuOrBar.actions()) {
      if (!text.empty()) text += ", ";
      const QMenu* submenu = entry->menu();
      text += (submenu != nullptr ? submenu->objectName() : entry->objectName()).toStdString();
      if (!entry->isSeparator()) text += " \"" + entry->text().toStdString() + "\"";
      if (submenu != nullptr) text += " [" + Entries(*submenu) + "]";
    }
    return text;
  }
};

using Menu = MainMenuTest;
using EventTexts = MainMenuTest;
using TheSet = MainMenuTest;
using Flows = MainMenuTest;
using Front = MainMenuTest;
using Exit = MainMenuTest;
using Place = MainMenuTest;

TEST_F(Menu, StandsInItsOrderWithNamesAndCaptions) {
  EXPECT_EQ(Entries(*menu->menuBar()),
            "menuFile \"&File\" [menuNew \"&New\", menuLoad \"&Load\", "
            "menuImport \"&Import PBN\", menuSave \"&Save\", div1, menuExit \"E&xit\"], "
            "menuDeal \"&Deal\", menuRead \"&Read\", menuSort \"S&ort\", menuEdit \"&Edit\", "
            "Analize \"&Analyze\", menuPrint \"&Print\", "
            "cmdMaintenance_direct \"&Maintenance\" [cmdMaintenance \"&Maintenance\", "
            "Read_Service_File \"&Read Service File\"], "
            "menuPoker \"Po&ker\", cmdSetup \"&Setup\" [cmdPref \"&Preferences\"]");
}

TEST_F(Menu, EntriesWithoutAFlowAreDisabled) {
  std::vector<std::string> enabled;
  for (const QAction* entry : menu->findChildren<QAction*>()) {
    if (entry->isEnabled() && entry->menu() == nullptr && !entry->isSeparator() &&
        !entry->objectName().isEmpty()) {
      enabled.push_back(entry->objectName().toStdString());
    }
  }
  EXPECT_THAT(enabled, ElementsAre("menuLoad", "menuImport", "menuSave", "menuExit", "menuDeal"));
}

TEST_F(Menu, ServiceFilesAreForServiceBuilds) {
  EXPECT_EQ(test::Find<QAction>(*menu, "Read_Service_File").isVisible(), MORVANE_SERVICE_LEVEL > 0);
  desk.Prog.ServiceLevel = 1;
  const MainMenu service(desk.Prog, shell);
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

TEST_F(Flows, DealingWithoutASetIsRefusedInBoxAndStatus) {
  Start();
  desk.When("MessageBox", [this](QWidget& box) {
    EXPECT_EQ(Text("Panel1"), "Board Set does not exist. Request ignored!");
    box.close();
  });
  Trigger("menuDeal");
  ASSERT_THAT(desk.Boxes, SizeIs(1));
  EXPECT_EQ(desk.Boxes[0].Title, "Dealing Error");
  EXPECT_EQ(desk.Boxes[0].Text, "Board Set does not exist. Request ignored!");
  EXPECT_EQ(Text("Panel1"), "Ready");
}

TEST_F(Flows, TheNumbersOfAFileWithoutThemAreAskedForOverTheMainWindow) {
  Start();
  std::string record;
  for (int round = 1; round <= 13; ++round) record += "0123";
  test::WriteContent(desk.Folder / "two.all", record + "\r\n" + record + "\r\n");
  desk.When("cdOpen", [this](QWidget& dialog) {
    test::Type(dialog, desk.Folder / "two.all");
    test::Press(dialog, Qt::Key_Return);
  });
  desk.When("Load_number", [this](QWidget& window) {
    EXPECT_EQ(Text("txtFirstBoard"), "") << "the old set has gone, the new one is not there yet";
    EXPECT_EQ(Text("Panel1"), "Loading");
    EXPECT_FALSE(test::Find<QAction>(*menu, "menuLoad").isEnabled());
    EXPECT_FALSE(menu->close());
    test::Type(window, "17");
    test::Press(window, Qt::Key_Return);
  });
  Trigger("menuLoad");
  EXPECT_EQ(Text("txtFirstBoard") + " " + Text("txtLastBoard"), "17 18");
  EXPECT_EQ(Text("txtFileName"), desk.Folder / "two.all");
  EXPECT_EQ(Text("Panel1"), "Boards loaded: 2");
  EXPECT_TRUE(test::Find<QAction>(*menu, "menuLoad").isEnabled());
  EXPECT_FALSE(menu->isWindowModified());
}

TEST_F(Flows, ASetIsSavedAndLoadedAgain) {
  Start();
  test::FillSet(desk.Prog.Set, 1, 4);
  const BoardSet saved = desk.Prog.Set;
  const std::string path = desk.Folder / "evening.pbn";
  desk.When("cdSave", [&](QWidget& dialog) {
    static_cast<QFileDialog&>(dialog).selectNameFilter("pbn (*.pbn)(*.pbn)");
    test::Find<QLineEdit>(dialog, "fileNameEdit").setText(QString::fromStdString(path));
    test::Press(dialog, Qt::Key_Return);
  });
  desk.Prog.Set.BoardSetChanged = "1";
  Trigger("menuSave");
  EXPECT_FALSE(menu->isWindowModified());
  EXPECT_EQ(Text("txtFileName"), path);
  EXPECT_EQ(Text("Panel1"), "Boards Saved: 4");
  desk.Prog.Set.Clear();
  desk.When("cdOpen", [&](QWidget& dialog) {
    test::Find<QLineEdit>(dialog, "fileNameEdit").setText(QString::fromStdString(path));
    test::Press(dialog, Qt::Key_Return);
  });
  Trigger("menuLoad");
  EXPECT_EQ(Text("Panel1"), "Boards loaded: 4");
  EXPECT_EQ(Text("txtCompleted"), "4");
  for (int n = 1; n <= 4; ++n) EXPECT_EQ(desk.Prog.Set.At(n).Cards, saved.At(n).Cards);
}

TEST_F(Flows, AFileThatLoadRefusesIsImportedWithAReport) {
  Start();
  const std::string path = desk.Folder / "loose.pbn";
  test::WriteContent(path,
                     "[Board\n\"5\"]\n[Deal \"N:AKQJT98765432... .AKQJT98765432.. "
                     "..AKQJT98765432. -\"]\n[Board \"0\"]\n");
  const auto choosePath = [&](QWidget& dialog) {
    test::Find<QLineEdit>(dialog, "fileNameEdit").setText(QString::fromStdString(path));
    test::Press(dialog, Qt::Key_Return);
  };
  desk.When("cdOpen", choosePath);
  desk.When("MessageBox", [](QWidget& box) { box.close(); });
  Trigger("menuLoad");
  EXPECT_EQ(Text("Panel1"), "Load operation aborted. File - Import PBN may take this file");

  desk.When("cdOpen", [&](QWidget& dialog) {
    EXPECT_EQ(dialog.windowTitle(), "Import PBN file");
    EXPECT_THAT(static_cast<QFileDialog&>(dialog).nameFilters(),
                ElementsAre("PBN files (*.pbn)(*.pbn)", "All files (*.*)(*)"));
    choosePath(dialog);
  });
  desk.When("MessageBox", [](QWidget& box) { box.close(); });
  Trigger("menuImport");
  ASSERT_THAT(desk.Boxes, SizeIs(2));
  EXPECT_EQ(desk.Boxes[1].Title, "Import PBN");
  EXPECT_EQ(desk.Boxes[1].Text,
            "Boards imported: 1\n\nBoards passed over: 1\nLine 4: board number \"0\" is not a "
            "number from 1 to 640\n\nNotes: 1\nLine 1: board 5 is incomplete: West is not given");
  EXPECT_EQ(Text("Panel1"), "Boards loaded: 1");
  EXPECT_EQ(Text("txtFirstBoard"), "5");
  EXPECT_EQ(Text("txtCompleted"), "0");
  EXPECT_EQ(Text("txtFileName"), path);
  EXPECT_FALSE(menu->isWindowModified());
}

/// A command that is off while it runs and on again however it ends.
class CommandTest : public MainMenuTest {
 protected:
  void Run(const char* how) {
    EXPECT_TRUE(IsOn(command)) << how;
    Trigger(command);
    EXPECT_TRUE(IsOn(command)) << how;
  }
  /// Chooses a file of the desk's folder in the coming dialog; without a name it is cancelled.
  void Choose(const std::string& name) {
    desk.When(dialog, [this, name](QWidget& window) {
      EXPECT_FALSE(IsOn(command));
      test::Type(window, name.empty() ? "" : desk.Folder / name);
      test::Press(window, name.empty() ? Qt::Key_Escape : Qt::Key_Return);
    });
  }
  void Answer(QMessageBox::StandardButton button) {
    desk.When("MessageBox", [this, button](QWidget& box) {
      EXPECT_FALSE(IsOn(command));
      test::Click(*static_cast<QMessageBox&>(box).button(button));
    });
  }
  const char* command = "menuLoad";
  const char* dialog = "cdOpen";

 private:
  [[nodiscard]] bool IsOn(const char* entry) const {
    return test::Find<QAction>(*menu, entry).isEnabled();
  }
};

using Command = CommandTest;

TEST_F(Command, LoadIsOnAgainHoweverItEnds) {
  Start();
  test::WriteContent(desk.Folder / "bad.pbn", "[Board \"641\"]");
  test::WriteContent(desk.Folder / "good.pbn", "[Board \"9\"]");
  test::WriteContent(desk.Folder / "letter", "Dear Sir");
  Choose("");
  Run("cancelled");
  Choose("bad.pbn");
  Answer(QMessageBox::Ok);
  Run("a faulty file");
  Choose("letter");
  Answer(QMessageBox::Ok);
  Run("no format");
  desk.Prog.AnalysisRunning = true;
  Answer(QMessageBox::Ok);
  Run("refused");
  desk.Prog.AnalysisRunning = false;
  desk.Prog.Set.BoardSetChanged = "1";
  Answer(QMessageBox::Cancel);
  Run("the set is not given up");
  desk.Prog.Set.BoardSetChanged = "0";
  Choose("good.pbn");
  Run("loaded");
  EXPECT_EQ(Text("txtFirstBoard"), "9");
}

TEST_F(Command, SaveIsOnAgainHoweverItEnds) {
  command = "menuSave";
  dialog = "cdSave";
  Start();
  Answer(QMessageBox::Ok);
  Run("no set");
  test::FillSet(desk.Prog.Set, 1, 2);
  Choose("");
  Run("cancelled");
  Choose("evening");
  Answer(QMessageBox::Ok);
  Run("no format");
  EXPECT_EQ(desk.Boxes.back().Text, "Unknow file format:\nSave operation aborted!");
  desk.Prog.Set.EventName = "50%";
  Choose("evening.pbn");
  Answer(QMessageBox::Ok);
  Run("refused");
  desk.Prog.Set.EventName = "";
  desk.Prog.Set.At(1) = Board{};
  Choose("evening.pbn");
  Answer(QMessageBox::No);
  Run("answered with No");
  EXPECT_FALSE(std::filesystem::exists(desk.Folder / "evening.pbn"));
  Choose("evening.pbn");
  Answer(QMessageBox::Yes);
  Run("saved");
  EXPECT_TRUE(std::filesystem::exists(desk.Folder / "evening.pbn"));
}

TEST_F(Flows, DealOpensTheRunWindowOverTheMainWindow) {
  Start();
  test::FillSet(desk.Prog.Set, 1, 2);
  desk.When("DealinProg", [this](QWidget& window) {
    EXPECT_EQ(Text("Panel1"), "Dealing");
    EXPECT_EQ(window.windowModality(), Qt::WindowModal);
    EXPECT_FALSE(menu->findChild<QAction*>("menuDeal")->isEnabled());
    desk.Loop.WaitMs(2100);
    test::Click(window, "cmdDeal");
    EXPECT_EQ(simulated.DealtBoard().Cards, desk.Prog.Set.At(1).Cards);
    test::Click(window, "cmdExit");
  });
  Trigger("menuDeal");
  EXPECT_EQ(test::TopWindow("DealinProg"), nullptr);
  EXPECT_TRUE(menu->findChild<QAction*>("menuDeal")->isEnabled());
  EXPECT_EQ(Text("Panel1"), "Ready");
  EXPECT_FALSE(shell.FlowActive());
}

TEST_F(Flows, ASecondFlowAndTheExitDoNothingWhileOneRuns) {
  Start();
  test::FillSet(desk.Prog.Set, 1, 2);
  desk.When("DealinProg", [this](QWidget& window) {
    Trigger("menuLoad");
    Trigger("menuImport");
    Trigger("menuSave");
    Trigger("menuDeal");
    Trigger("menuExit");
    EXPECT_TRUE(menu->isVisible());
    EXPECT_FALSE(desk.Loop.Quitting());
    EXPECT_EQ(Text("Panel1"), "Dealing");
    window.close();
  });
  Trigger("menuDeal");
  EXPECT_THAT(desk.Boxes, IsEmpty());
}

TEST_F(Flows, ClosingTheRunWindowInTheMiddleOfABoardEndsTheFlowAfterIt) {
  Start();
  test::FillSet(desk.Prog.Set, 1, 2);
  desk.When("DealinProg", [this](QWidget& window) {
    desk.Loop.WaitMs(2100);
    desk.Loop.After(5000, [&window] { window.close(); });
    test::Click(window, "cmdDeal");
  });
  Trigger("menuDeal");
  EXPECT_FALSE(simulated.Busy());
  EXPECT_EQ(test::TopWindow("DealinProg"), nullptr);
  EXPECT_EQ(desk.LogLines().back(), "  001 : 1,0 0,0,0,0 57");
}

TEST_F(Flows, AFileOfTheCommandLineIsLoadedAtTheStart) {
  test::FillSet(desk.Prog.Set, 1, 3);
  const std::string path = desk.Folder / "evening.pbn";
  test::WriteContent(path,
                     "[Board \"9\"]\r\n[Deal \"N:AKQJT98765432... .AKQJT98765432.. "
                     "..AKQJT98765432. ...AKQJT98765432\"]\r\n");
  Start("\"" + path + "\"");
  EXPECT_EQ(Text("txtFirstBoard") + Text("txtLastBoard"), "99");
  EXPECT_EQ(Text("txtFileName"), path);
}

TEST_F(Flows, ALinkCommandLoadsItsFile) {
  Start();
  test::WriteContent(desk.Folder / "evening.pbn", "[Board \"9\"]\r\n");
  shell.LinkExecute("1" + (desk.Folder / "evening.pbn"));
  desk.Loop.WaitMs(Shell::kTimer2Ms);
  EXPECT_EQ(Text("txtFileName"), desk.Folder / "evening.pbn");
  EXPECT_EQ(Text("txtFirstBoard"), "9");
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
  menu->resize(900, 555);
  menu->close();
  const MainMenu again(desk.Prog, shell);
  EXPECT_EQ(again.size(), QSize(900, 555));
}

TEST_F(Place, ADamagedOneIsIgnored) {
  desk.Store.Set({"Window", "MainMenu", ""}, "no place");
  const MainMenu again(desk.Prog, shell);
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
