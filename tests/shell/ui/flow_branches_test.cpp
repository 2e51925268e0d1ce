#include <QLineEdit>
#include <filesystem>

#include "machine/dealing_run.h"
#include "shell/ui/main_menu_desk.h"

// Every way that a flow of the menu can go, with the keys of its entry and of its questions.

namespace morvane::shell {
namespace {

using ::testing::IsEmpty;
using ::testing::SizeIs;

constexpr const char* kUnsaved =
    "Current Board Set has not been saved.\n\nDo you want to save the current Board Set?";
constexpr const char* kAnalysis =
    "This function cannot be used while analysis is running\nPlease wait for analysis to finish or "
    "cancel it and try again";

class Branches : public MainMenuTest {
 protected:
  void SetUp() override {
    MainMenuTest::SetUp();
    test::WriteContent(desk.Folder / "evening.pbn", "[Board \"9\"]\r\n");
    Start();
    test::FillSet(desk.Prog.Set, 1, 2);
    ShowFigures();
  }
  void Change() {
    test::Type(*menu, "x");  // into the event name
    ASSERT_TRUE(menu->isWindowModified());
  }
  void Control(Qt::Key key) { test::Press(*menu, key, Qt::ControlModifier); }
  void ImportByItsKeys() {
    test::Press(*menu, Qt::Key_F, Qt::AltModifier);
    desk.Loop.Pump();
    test::Press(test::Find<QWidget>(*menu, "menuFile"), Qt::Key_I);
  }
  /// When a box comes up next, it is answered with that letter, or with Escape.
  void AnswerWith(Qt::Key key) {
    desk.When("MessageBox", [key](QWidget& box) {
      test::Press(box, key, key == Qt::Key_Escape ? Qt::NoModifier : Qt::AltModifier);
    });
  }
  void Confirm() {
    desk.When("MessageBox", [](QWidget& box) { test::Press(box, Qt::Key_Return); });
  }
  void ChooseFile(const char* dialog, const std::string& name) {
    desk.When(dialog, [this, name](QWidget& window) {
      test::Find<QLineEdit>(window, "fileNameEdit")
          .setText(QString::fromStdString(desk.Folder / name));
      test::Press(window, Qt::Key_Return);
    });
  }
  void CancelFile(const char* dialog) {
    desk.When(dialog, [](QWidget& window) { test::Press(window, Qt::Key_Escape); });
  }
  void ExpectOneBox(const std::string& title, const std::string& text) {
    ASSERT_THAT(desk.Boxes, SizeIs(1));
    EXPECT_EQ(desk.Boxes[0].Title, title);
    EXPECT_EQ(desk.Boxes[0].Text, text);
  }
  void ExpectTheOldSet(const char* changed) {
    EXPECT_EQ(Text("txtFirstBoard") + Text("txtLastBoard"), "12");
    EXPECT_EQ(desk.Prog.Set.BoardSetChanged, changed);
    EXPECT_EQ(Text("Panel1"), "Ready");
    EXPECT_FALSE(shell.FlowActive());
  }
  void ExpectTheNewSet() {
    EXPECT_EQ(Text("txtFirstBoard"), "9");
    EXPECT_EQ(desk.Prog.Set.BoardSetChanged, "0");
    EXPECT_FALSE(shell.FlowActive());
  }
  bool IsSaved() { return std::filesystem::exists(desk.Folder / "saved.pbn"); }
};

using LoadBranches = Branches;
using ImportBranches = Branches;
using SaveBranches = Branches;
using DealBranches = Branches;
using ExitBranches = Branches;

TEST_F(LoadBranches, WithoutChangesNothingIsAsked) {
  ChooseFile("cdOpen", "evening.pbn");
  Control(Qt::Key_O);
  ExpectTheNewSet();
  EXPECT_THAT(desk.Boxes, IsEmpty());
}

TEST_F(LoadBranches, YesSavesTheSetFirst) {
  Change();
  AnswerWith(Qt::Key_Y);
  ChooseFile("cdSave", "saved.pbn");
  ChooseFile("cdOpen", "evening.pbn");
  Control(Qt::Key_O);
  ExpectOneBox("Load New Board Set", kUnsaved);
  EXPECT_TRUE(IsSaved());
  ExpectTheNewSet();
}

TEST_F(LoadBranches, YesAndASaveThatIsCancelledKeepsTheSet) {
  Change();
  AnswerWith(Qt::Key_Y);
  CancelFile("cdSave");
  Control(Qt::Key_O);
  ExpectTheOldSet("1");
}

TEST_F(LoadBranches, NoLoadsTheFileInPlaceOfTheChanges) {
  Change();
  AnswerWith(Qt::Key_N);
  ChooseFile("cdOpen", "evening.pbn");
  Control(Qt::Key_O);
  EXPECT_FALSE(IsSaved());
  ExpectTheNewSet();
}

TEST_F(LoadBranches, NoAndACancelledDialogKeepsTheSetWhichCountsAsSaved) {
  Change();
  AnswerWith(Qt::Key_N);
  CancelFile("cdOpen");
  Control(Qt::Key_O);
  ExpectTheOldSet("0");
  EXPECT_FALSE(menu->isWindowModified());
}

TEST_F(LoadBranches, CancelKeepsTheSet) {
  Change();
  AnswerWith(Qt::Key_Escape);
  Control(Qt::Key_O);
  ExpectTheOldSet("1");
}

TEST_F(LoadBranches, IsRefusedWhileAnalysisRuns) {
  Change();
  desk.Prog.AnalysisRunning = true;
  Confirm();
  Control(Qt::Key_O);
  ExpectOneBox("Load Error", kAnalysis);
  ExpectTheOldSet("1");
}

TEST_F(ImportBranches, YesSavesTheSetFirst) {
  Change();
  AnswerWith(Qt::Key_Y);
  ChooseFile("cdSave", "saved.pbn");
  ChooseFile("cdOpen", "evening.pbn");
  Confirm();  // the report
  ImportByItsKeys();
  ASSERT_THAT(desk.Boxes, SizeIs(2));
  EXPECT_EQ(desk.Boxes[0].Title, "Import PBN");
  EXPECT_EQ(desk.Boxes[0].Text, kUnsaved);
  EXPECT_TRUE(IsSaved());
  ExpectTheNewSet();
}

TEST_F(ImportBranches, BehindTheReportNoFigureIsOfTheSetBefore) {
  ChooseFile("cdOpen", "evening.pbn");
  desk.When("MessageBox", [this](QWidget& box) {
    EXPECT_EQ(Text("txtFirstBoard") + Text("txtLastBoard"), "");
    test::Press(box, Qt::Key_Return);
  });
  ImportByItsKeys();
  ExpectTheNewSet();
}

TEST_F(ImportBranches, YesAndASaveThatIsCancelledKeepsTheSet) {
  Change();
  AnswerWith(Qt::Key_Y);
  CancelFile("cdSave");
  ImportByItsKeys();
  ExpectTheOldSet("1");
}

TEST_F(ImportBranches, NoImportsTheFileInPlaceOfTheChanges) {
  Change();
  AnswerWith(Qt::Key_N);
  ChooseFile("cdOpen", "evening.pbn");
  Confirm();
  ImportByItsKeys();
  ExpectTheNewSet();
}

TEST_F(ImportBranches, NoAndACancelledDialogKeepsTheSetAndItsChanges) {
  Change();
  AnswerWith(Qt::Key_N);
  CancelFile("cdOpen");
  ImportByItsKeys();
  ExpectTheOldSet("1");
}

TEST_F(ImportBranches, CancelKeepsTheSet) {
  Change();
  AnswerWith(Qt::Key_Escape);
  ImportByItsKeys();
  ExpectTheOldSet("1");
}

TEST_F(ImportBranches, IsRefusedWhileAnalysisRuns) {
  desk.Prog.AnalysisRunning = true;
  Confirm();
  ImportByItsKeys();
  ExpectOneBox("Import PBN", kAnalysis);
  ExpectTheOldSet("0");
}

TEST_F(SaveBranches, TheSetIsWrittenIntoTheFile) {
  Change();
  ChooseFile("cdSave", "saved.pbn");
  Control(Qt::Key_S);
  EXPECT_TRUE(IsSaved());
  EXPECT_EQ(Text("Panel1"), "Boards Saved: 2");
  EXPECT_FALSE(menu->isWindowModified());
}

TEST_F(SaveBranches, ACancelledDialogWritesNothing) {
  Change();
  CancelFile("cdSave");
  Control(Qt::Key_S);
  EXPECT_FALSE(IsSaved());
  ExpectTheOldSet("1");
}

TEST_F(SaveBranches, WithoutASetIsRefused) {
  desk.Prog.Set.Clear();
  Confirm();
  Control(Qt::Key_S);
  ExpectOneBox("Save Error", "Board Set does not exist. Request ignored!");
}

TEST_F(SaveBranches, IncompleteBoardsAndNoWritesNothing) {
  desk.Prog.Set.At(2) = NumberedBoard(2);
  ChooseFile("cdSave", "saved.pbn");
  AnswerWith(Qt::Key_N);
  Control(Qt::Key_S);
  EXPECT_FALSE(IsSaved());
  EXPECT_EQ(Text("Panel1"), "Ready");
}

TEST_F(SaveBranches, IncompleteBoardsAndYesWritesThem) {
  desk.Prog.Set.At(2) = NumberedBoard(2);
  ChooseFile("cdSave", "saved.pbn");
  AnswerWith(Qt::Key_Y);
  Control(Qt::Key_S);
  EXPECT_TRUE(IsSaved());
}

TEST_F(DealBranches, WithoutASetIsRefused) {
  desk.Prog.Set.Clear();
  Confirm();
  Control(Qt::Key_D);
  ExpectOneBox("Dealing Error", "Board Set does not exist. Request ignored!");
  EXPECT_EQ(Text("Panel1"), "Ready");
}

TEST_F(DealBranches, OpensTheRunWindowAlsoWhileAnalysisRuns) {
  desk.Prog.AnalysisRunning = true;
  desk.When("DealinProg", [this](QWidget& window) {
    EXPECT_EQ(Text("Panel1"), "Dealing");
    desk.Loop.WaitMs(machine::BoardRun::kFirstContactMs + 100);
    test::Click(window, "cmdExit");
  });
  Control(Qt::Key_D);
  EXPECT_THAT(desk.Boxes, IsEmpty());
  ExpectTheOldSet("0");
}

TEST_F(ExitBranches, WithoutChangesTheProgramEnds) {
  Control(Qt::Key_Q);
  EXPECT_TRUE(desk.Loop.Quitting());
  EXPECT_FALSE(menu->isVisible());
  EXPECT_THAT(desk.Boxes, IsEmpty());
}

TEST_F(ExitBranches, YesSavesAndEnds) {
  Change();
  AnswerWith(Qt::Key_Y);
  ChooseFile("cdSave", "saved.pbn");
  Control(Qt::Key_Q);
  ExpectOneBox("Exit", kUnsaved);
  EXPECT_TRUE(IsSaved());
  EXPECT_TRUE(desk.Loop.Quitting());
}

TEST_F(ExitBranches, YesAndASaveThatIsCancelledStays) {
  Change();
  AnswerWith(Qt::Key_Y);
  CancelFile("cdSave");
  Control(Qt::Key_Q);
  EXPECT_TRUE(menu->isVisible());
  EXPECT_FALSE(desk.Loop.Quitting());
  ExpectTheOldSet("1");
}

TEST_F(ExitBranches, NoEndsWithoutASave) {
  Change();
  AnswerWith(Qt::Key_N);
  Control(Qt::Key_Q);
  EXPECT_FALSE(IsSaved());
  EXPECT_TRUE(desk.Loop.Quitting());
}

TEST_F(ExitBranches, CancelStaysAndThePoolHasBeenWrittenAlready) {
  Change();
  const std::string before = desk.Store.Get(kSeedm);
  shell.Deals().Pool.Seedm[0] = static_cast<std::uint8_t>(~shell.Deals().Pool.Seedm[0]);
  AnswerWith(Qt::Key_Escape);
  Control(Qt::Key_Q);
  EXPECT_TRUE(menu->isVisible());
  EXPECT_FALSE(desk.Loop.Quitting());
  EXPECT_NE(desk.Store.Get(kSeedm), before);
  EXPECT_EQ(desk.Store.Get(kSeedm), shell.Deals().Pool.HexText());
}

TEST_F(ExitBranches, IsRefusedWhileAnalysisRuns) {
  Change();
  desk.Prog.AnalysisRunning = true;
  Confirm();
  Control(Qt::Key_Q);
  ExpectOneBox("Exit Error",
               "The program cannot exit while analysis is running\nPlease wait for analysis to "
               "finish or cancel it and try again");
  EXPECT_TRUE(menu->isVisible());
  EXPECT_FALSE(desk.Loop.Quitting());
}

}  // namespace
}  // namespace morvane::shell
