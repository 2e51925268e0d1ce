#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QProgressBar>
#include <QRadioButton>

#include "print/ui/hand_record_window_desk.h"

// The printing dialog from the menu until its window has gone.

namespace morvane::shell {
namespace {

using test::Enabled;
using test::Visible;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

TEST_F(HandRecordWindowTest, ShowsTheSetAndTheOptions) {
  desk.Store.Set(kPrintStat, "3");
  desk.Store.Set(kPrintHcp, "0");
  desk.Store.Set(kNational, "4");
  Open([this](QWidget& window) {
    EXPECT_EQ(Text("Panel1"), "Printing");
    EXPECT_EQ(window.windowModality(), Qt::WindowModal);
    EXPECT_EQ(test::TextOf(window, "txtFileName"), "/sets/evening.pbn");
    EXPECT_EQ(test::TextOf(window, "txtFirstBoard"), "5");
    EXPECT_EQ(test::TextOf(window, "txtLastBoard"), "9");
    EXPECT_TRUE(test::Find<QLineEdit>(window, "txtLastBoard").isReadOnly());
    EXPECT_EQ(test::TextOf(window, "txtFromBoard"), "5");
    EXPECT_EQ(test::TextOf(window, "txtToBoard"), "9");
    EXPECT_EQ(test::TextOf(window, "txtCopies"), "1");
    EXPECT_EQ(test::TextOf(window, "txtNSoffset"), "1");
    EXPECT_EQ(test::TextOf(window, "Header"), "Club evening");
    EXPECT_TRUE(Checked(window, "PrintMode1"));
    EXPECT_TRUE(Checked(window, "Option3"));
    EXPECT_TRUE(Checked(window, "ColorPrint"));
    EXPECT_TRUE(Checked(window, "DeepPrint"));
    EXPECT_FALSE(Checked(window, "PrintHCP"));
    EXPECT_TRUE(Checked(window, "Stat3"));
    EXPECT_TRUE(Checked(window, "Ten1"));
    EXPECT_TRUE(Checked(window, "National_5"));
    EXPECT_TRUE(Checked(window, "chkPrintBoards"));
    EXPECT_FALSE(Checked(window, "chkPrintNS"));
    EXPECT_FALSE(Visible(window, "lblPrinting"));
    EXPECT_FALSE(Visible(window, "Printing_progress"));
    EXPECT_FALSE(Visible(window, "lblChoose"));
    EXPECT_EQ(Focus(window), "txtFromBoard");
  });
}

TEST_F(HandRecordWindowTest, HasItsCaptions) {
  Open([](QWidget& window) {
    EXPECT_EQ(Caption(window, "PrintMode1"), "Print Hand Records to printer");
    EXPECT_EQ(Caption(window, "PrintMode2"), "Print Score Cards");
    EXPECT_EQ(Caption(window, "PrintMode3"), "Print Hand Records to the text file");
    EXPECT_EQ(test::Find<QGroupBox>(window, "frameBoardsPerPage").title(), "Boards per Page:");
    EXPECT_EQ(Caption(window, "Option2"), "10");
    EXPECT_EQ(Caption(window, "Option3"), "12");
    EXPECT_EQ(Caption(window, "Option4"), "15");
    EXPECT_EQ(Caption(window, "Option5"), "18");
    EXPECT_EQ(Caption(window, "DeepPrint"), "Print Analysis");
    EXPECT_EQ(Caption(window, "PrintHCP"), "Print HCP");
    EXPECT_EQ(Caption(window, "Stat1"), "Do not print Statistics");
    EXPECT_EQ(Caption(window, "Stat2"), "Print Statistics before first board");
    EXPECT_EQ(Caption(window, "Stat3"), "Print Statistics after last board");
    EXPECT_EQ(Caption(window, "chkPrintBoards"), "Print Boards");
    EXPECT_EQ(Caption(window, "chkPrintNS"), "Print NS Pair Number");
    EXPECT_EQ(test::Find(window, "txtNSoffset").toolTip(),
              "Number of NS pair to be printed onthe first row of the Score Card");
    QStringList labels;
    for (const auto* label : window.findChildren<QLabel*>()) labels << label->text().remove('&');
    EXPECT_TRUE(labels.contains("First NS Pair:"));
    EXPECT_TRUE(
        labels.contains("Event Name - will be printed on the top of the Hands Record pages"));
  });
}

TEST_F(HandRecordWindowTest, AClickIsStoredAtOnce) {
  Open([this](QWidget& window) {
    const std::pair<const char*, std::pair<SettingKey, const char*>> kClicks[] = {
        {"Option5", {kPrintPerPage, "4"}},
        {"ColorPrint", {kPrintColor, "0"}},
        {"DeepPrint", {kPrintAnalyze, "0"}},
        {"PrintHCP", {kPrintHcp, "0"}},
        {"Stat2", {kPrintStat, "2"}},
        {"Ten2", {kPrintTen, "2"}},
        {"National_7", {kNational, "6"}},
        {"PrintMode2", {kPrintMode, "1"}},
        {"chkPrintNS", {kPrintScoreCardMode, "3"}},
        {"chkPrintBoards", {kPrintScoreCardMode, "1"}}};
    for (const auto& [control, setting] : kClicks) {
      test::Click(window, control);
      EXPECT_EQ(desk.Store.Get(setting.first), setting.second) << control;
    }
  });
}

TEST_F(HandRecordWindowTest, WithoutALayoutItAsksForOneAndCannotPrint) {
  desk.Store.Set(kPrintPerPage, "0");
  Open([this](QWidget& window) {
    for (const char* name : {"Option2", "Option3", "Option4", "Option5"}) {
      EXPECT_FALSE(Checked(window, name)) << name;
    }
    EXPECT_FALSE(Enabled(window, "cmdPrint"));
    EXPECT_FALSE(Enabled(window, "cmdPreview"));
    EXPECT_FALSE(Enabled(window, "cmdPdf"));
    EXPECT_TRUE(Visible(window, "lblChoose"));
    test::Press(window, Qt::Key_Return);
    EXPECT_THAT(desk.ThePrinter.Jobs, IsEmpty());
    test::Click(window, "Option4");
    EXPECT_FALSE(Visible(window, "lblChoose"));
    test::Press(window, Qt::Key_Return);
    EXPECT_THAT(desk.ThePrinter.Jobs, SizeIs(1));
  });
}

TEST_F(HandRecordWindowTest, OptionsThatAModeDoesNotUseCannotBeUsed) {
  Open([](QWidget& window) {
    EXPECT_FALSE(Enabled(window, "chkPrintNS"));
    EXPECT_FALSE(Enabled(window, "txtNSoffset"));
    EXPECT_TRUE(Enabled(window, "Option2"));
    test::Click(window, "PrintMode2");
    EXPECT_FALSE(Enabled(window, "Option2"));
    EXPECT_FALSE(Enabled(window, "Stat2"));
    EXPECT_FALSE(Enabled(window, "Header"));
    EXPECT_TRUE(Enabled(window, "chkPrintNS"));
    EXPECT_FALSE(Enabled(window, "txtNSoffset"));
    test::Click(window, "chkPrintNS");
    EXPECT_TRUE(Enabled(window, "txtNSoffset"));
    EXPECT_TRUE(Enabled(window, "cmdPreview"));
    test::Click(window, "PrintMode3");
    EXPECT_FALSE(Enabled(window, "txtCopies"));
    EXPECT_FALSE(Enabled(window, "cmdPreview"));
    EXPECT_FALSE(Enabled(window, "cmdPdf"));
    EXPECT_FALSE(Enabled(window, "cmdPrinterSetup"));
    EXPECT_TRUE(Enabled(window, "cmdPrint"));
    EXPECT_TRUE(Enabled(window, "Ten2"));
  });
}

TEST_F(HandRecordWindowTest, ARefusalLeadsBackToItsBox) {
  Open([this](QWidget& window) {
    Retype(window, "txtFromBoard", "4");
    test::Click(window, "Header");
    desk.AnswerBox(QMessageBox::Ok);
    test::Press(window, Qt::Key_Return);
    ASSERT_THAT(desk.Boxes, SizeIs(1));
    EXPECT_EQ(desk.Boxes[0].Title, "Printing Parameter Error");
    EXPECT_EQ(Text("Panel1"), "Printing Parameter Error");
    EXPECT_EQ(Focus(window), "txtFromBoard");
    test::Type(window, "7");
    EXPECT_EQ(test::TextOf(window, "txtFromBoard"), "7") << "typed over";
    Retype(window, "txtToBoard", "6");
    desk.AnswerBox(QMessageBox::Ok);
    test::Click(window, "cmdPrint");
    EXPECT_EQ(Focus(window), "txtToBoard");
  });
}

TEST_F(HandRecordWindowTest, ExitCloses) {
  Open([](QWidget& window) {
    test::Click(window, "cmdExit");
    EXPECT_FALSE(window.isVisible());
  });
}

TEST_F(HandRecordWindowTest, WhileItPrintsTheFramesAreHiddenAndTheBarMoves) {
  Open([this](QWidget& window) {
    const auto& bar = test::Find<QProgressBar>(window, "Printing_progress");
    std::vector<int> seen;
    const auto before = desk.Loop.OnPump;
    desk.Loop.OnPump = [&] {
      before();
      seen.push_back(bar.value());
      EXPECT_EQ(bar.maximum(), 5);
      const bool printing = Visible(window, "lblPrinting");
      EXPECT_EQ(printing, bar.isVisible());
      EXPECT_NE(printing, Visible(window, "frameBoardsPerPage"));
      EXPECT_NE(printing, Enabled(window, "cmdPrint"));
      EXPECT_TRUE(printing);
      EXPECT_EQ(Focus(window), "Printing_progress");
      EXPECT_FALSE(window.close()) << "not before it is done";
      test::Press(window, Qt::Key_Escape);
      test::Press(window, Qt::Key_Return);
    };
    test::Press(window, Qt::Key_Return);
    desk.Loop.OnPump = before;
    EXPECT_THAT(seen, ElementsAre(0, 1, 2, 3, 4, 5, 5));
    EXPECT_THAT(desk.ThePrinter.Jobs, SizeIs(1));
    EXPECT_TRUE(Visible(window, "frameBoardsPerPage"));
    EXPECT_FALSE(Visible(window, "lblPrinting"));
    EXPECT_TRUE(Enabled(window, "cmdPrint"));
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(Focus(window), "txtFromBoard");
  });
}

TEST_F(HandRecordWindowTest, ItTellsHowManyBoardsItPrints) {
  Open([this](QWidget& window) {
    std::vector<std::string> told;
    const auto before = desk.Loop.OnPump;
    desk.Loop.OnPump = [&] {
      before();
      const std::string text = test::TextOf(window, "lblPrinting");
      if (told.empty() || told.back() != text) told.push_back(text);
    };
    test::Press(window, Qt::Key_Return);
    Retype(window, "txtToBoard", "5");
    test::Press(window, Qt::Key_Return);
    desk.Loop.OnPump = before;
    EXPECT_THAT(told, ElementsAre("Printing 5 boards", "Printing 1 board"));
  });
}

TEST_F(HandRecordWindowTest, AFailureIsToldAndTheFramesAreBack) {
  Open([this](QWidget& window) {
    desk.ThePrinter.Failure = RuntimeError{5, "The paper is out"};
    desk.AnswerBox(QMessageBox::Ok);
    test::Click(window, "cmdPrint");
    ASSERT_THAT(desk.Boxes, SizeIs(1));
    EXPECT_EQ(desk.Boxes[0].Title, "Printing Error");
    EXPECT_EQ(desk.Boxes[0].Text, "Error: 5 during printing - The paper is out\nPrint aborted!");
    EXPECT_TRUE(Visible(window, "PrintMode"));
    EXPECT_TRUE(Enabled(window, "cmdPrint"));
  });
}

TEST_F(HandRecordWindowTest, TheSetupsCopiesAreShown) {
  Open([this](QWidget& window) {
    desk.ThePrinter.Confirmed = 30;
    test::Click(window, "cmdPrinterSetup");
    EXPECT_EQ(test::TextOf(window, "txtCopies"), "30");
    EXPECT_EQ(Text("Panel1"), "Printing");
  });
}

TEST_F(HandRecordWindowTest, ThePreviewOpensOverIt) {
  bool shown = false;
  Open([&](QWidget& window) {
    desk.ThePrinter.OnPreview = [&](const std::vector<PreviewAction>& actions) {
      shown = true;
      EXPECT_TRUE(Visible(window, "frameBoardsPerPage"));
      actions[0].Do();
    };
    PressLetter(window, Qt::Key_V, [&shown] { return shown; });
    EXPECT_THAT(desk.ThePrinter.Jobs, SizeIs(1));
  });
}

TEST_F(HandRecordWindowTest, SavesAPdf) {
  Open([this](QWidget& window) {
    const std::string path = desk.Folder / "evening.pdf";
    desk.When("cdSave", [&](QWidget& dialog) {
      test::Find<QLineEdit>(dialog, "fileNameEdit").setText(QString::fromStdString(path));
      test::Press(dialog, Qt::Key_Return);
    });
    PressLetter(window, Qt::Key_D, [&path] { return std::filesystem::exists(path); });
    EXPECT_EQ(test::Content(path), "PDF of Club evening, pages: 1");
  });
}

TEST_F(HandRecordWindowTest, GoesWithTheProgramInTheMiddleOfARun) {
  desk.When("HandRecord", [this](QWidget& window) {
    desk.Loop.OnPump = [this] { desk.Loop.Quit(); };
    test::Click(window, "cmdPrint");
  });
  Trigger("menuPrint");
  EXPECT_EQ(test::TopWindow("HandRecord"), nullptr);
  EXPECT_THAT(desk.Boxes, IsEmpty());
  EXPECT_FALSE(shell.FlowActive());
}

TEST_F(HandRecordWindowTest, GoesWithTheProgramFromItsQuestion) {
  desk.Prog.Set.At(6).Tricks[0] = 0;
  desk.When("HandRecord", [this](QWidget& window) {
    desk.When("MessageBox", [this](QWidget&) { desk.Loop.Quit(); });
    test::Click(window, "cmdPrint");
  });
  Trigger("menuPrint");
  EXPECT_EQ(test::TopWindow("HandRecord"), nullptr);
  EXPECT_THAT(desk.ThePrinter.Jobs, IsEmpty());
}

TEST_F(HandRecordWindowTest, WithoutASetThereIsNone) {
  desk.Prog.Set = BoardSet{};
  desk.AnswerBox(QMessageBox::Ok);
  Trigger("menuPrint");
  ASSERT_THAT(desk.Boxes, SizeIs(1));
  EXPECT_EQ(desk.Boxes[0].Title, "Printing Error");
  EXPECT_EQ(desk.Boxes[0].Text, "Board Set does not exist. Request ignored!");
  EXPECT_EQ(Text("Panel1"), "Ready");
}

}  // namespace
}  // namespace morvane::shell
