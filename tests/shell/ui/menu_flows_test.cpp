#include <QAbstractButton>
#include <QApplication>
#include <QDropEvent>
#include <QFileDialog>
#include <QLineEdit>
#include <QMimeData>
#include <QUrl>

#include "shell/ui/main_menu_desk.h"

// The flows behind the menu, through the windows that they open.

namespace morvane::shell {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

using Flows = MainMenuTest;

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
  EXPECT_EQ(Text("Panel1"), "Boards imported: 1");
  EXPECT_EQ(Text("txtFirstBoard"), "5");
  EXPECT_EQ(Text("txtCompleted"), "0");
  EXPECT_EQ(Text("txtFileName"), path);
  EXPECT_FALSE(menu->isWindowModified());
}

/// What a file manager drags.
std::unique_ptr<QMimeData> Dragged(const QList<QUrl>& urls) {
  auto data = std::make_unique<QMimeData>();
  data->setUrls(urls);
  return data;
}

/// Drags `data` over the window; whether it would be taken there.
bool IsTaken(QWidget& window, const QMimeData& data) {
  QDragEnterEvent enter({10, 10}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(&window, &enter);
  return enter.isAccepted();
}

/// Drags the file over the window and drops it there.
void DropFile(QWidget& window, const std::string& path) {
  const auto data = Dragged({QUrl::fromLocalFile(QString::fromStdString(path))});
  EXPECT_TRUE(IsTaken(window, *data));
  QDropEvent drop({10, 10}, Qt::CopyAction, data.get(), Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(&window, &drop);
  EXPECT_TRUE(drop.isAccepted());
}

TEST_F(Flows, AFileThatIsDroppedIsLoaded) {
  Start();
  const std::string path = desk.Folder / "evening of May.bri";
  test::WriteContent(path, "");
  DropFile(*menu, path);
  EXPECT_THAT(desk.Boxes, SizeIs(0)) << "whoever drags it gets back to his work first";
  desk.When("MessageBox", [](QWidget& box) { box.close(); });
  desk.Loop.WaitMs(Shell::kTimer2Ms);
  ASSERT_THAT(desk.Boxes, SizeIs(1));
  EXPECT_EQ(desk.Boxes[0].Text, "File format error\nFile is empty\n\nLoad operation aborted!");
}

TEST_F(Flows, AFirmwareFileThatIsDroppedOpensTheServiceForItAlone) {
  Start();
  const std::string path = desk.Folder / "New.Adc";
  test::WriteContent(path, "no firmware");
  DropFile(*menu, path);
  EXPECT_EQ(test::TopWindow("Maintenance"), nullptr);
  desk.When("Maintenance", [this](QWidget&) { EXPECT_EQ(Text("Panel1"), "Maintenance"); });
  desk.When("MessageBox", [](QWidget& box) {
    EXPECT_NE(test::TopWindow("Maintenance"), nullptr);
    box.close();
  });
  desk.Loop.WaitMs(Shell::kTimer2Ms);
  ASSERT_THAT(desk.Boxes, SizeIs(1)) << "no file is asked for";
  EXPECT_EQ(desk.Boxes[0].Title, "Download Error");
  EXPECT_THAT(desk.LogLines(), ::testing::Contains("   Firmware file open: " + path));
  EXPECT_EQ(test::TopWindow("Maintenance"), nullptr) << "it leaves behind the download";
  EXPECT_EQ(Text("Panel1"), "Ready");
  EXPECT_FALSE(shell.FlowActive());
}

TEST_F(Flows, OnlyASingleFileOfThisComputerIsTakenAndNoneWhileACommandRuns) {
  Start();
  const QUrl file = QUrl::fromLocalFile("/sets/evening.pbn");
  EXPECT_TRUE(IsTaken(*menu, *Dragged({file})));
  EXPECT_FALSE(IsTaken(*menu, *Dragged({file, QUrl::fromLocalFile("/sets/other.pbn")})));
  EXPECT_FALSE(IsTaken(*menu, *Dragged({QUrl("https://example.org/evening.pbn")})));
  QMimeData text;
  text.setText("/sets/evening.pbn");
  EXPECT_FALSE(IsTaken(*menu, text));
  desk.When("cdOpen", [&](QWidget& dialog) {
    EXPECT_FALSE(IsTaken(*menu, *Dragged({file})));
    test::Press(dialog, Qt::Key_Escape);
  });
  Trigger("menuLoad");
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

TEST_F(Flows, ReadTakesABoardUpIntoTheSetAndItsStatistics) {
  Start();
  for (int n = 1; n <= 2; ++n) desk.Prog.Set.At(n) = NumberedBoard(n);
  desk.Prog.Set.FirstBoard = 1;
  desk.Prog.Set.LastBoard = 2;
  simulated.LayBoard(test::SuitBoard(1));
  desk.When("DealinProg", [this](QWidget& window) {
    EXPECT_EQ(window.windowTitle(), "Morvane - Reading");
    EXPECT_EQ(Text("Panel1"), "Reading");
    desk.Loop.WaitMs(2100);
    test::Click(window, "cmdDeal");
    test::Click(window, "cmdExit");
  });
  Trigger("menuRead");
  EXPECT_EQ(desk.Prog.Set.At(1).Cards, test::SuitBoard(1).Cards);
  EXPECT_TRUE(menu->isWindowModified());
  EXPECT_EQ(Text("Panel1"), "Ready");
}

TEST_F(Flows, SortNeedsNoSet) {
  Start();
  desk.When("DealinProg", [this](QWidget& window) {
    EXPECT_EQ(window.windowTitle(), "Morvane - Sorting");
    EXPECT_EQ(Text("Panel1"), "Sorting");
    desk.Loop.WaitMs(2100);
    test::Click(window, "cmdSort");
    EXPECT_EQ(desk.LogLines().back(), "  Sort: 0,0,0,0 OK");
    test::Click(window, "cmdExit");
  });
  Trigger("menuSort");
  EXPECT_EQ(test::TopWindow("DealinProg"), nullptr);
  EXPECT_EQ(Text("Panel1"), "Ready");
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

}  // namespace
}  // namespace morvane::shell
