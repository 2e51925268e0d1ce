#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QTest>
#include <map>

#include "analysis/asymmetric_board.h"
#include "analysis/scripted_solver.h"
#include "machine/machine_run.h"
#include "shell/ui/main_menu_desk.h"

// An analysis in its window, from the menu and from the editor.

namespace morvane::shell {
namespace {

using analysis::ScriptedSolver;
using ::testing::IsEmpty;
using ::testing::SizeIs;

class DeepFWindowTest : public MainMenuTest {
 protected:
  void SetUp() override {
    MainMenuTest::SetUp();
    Start();
    test::FillSet(desk.Prog.Set, 1, 3);
    processes.OnStart = [this](const ProcessOrder& order) { return solver.Start(order); };
  }
  /// DDS over the whole set; `act` is done with its window, from which the operator comes back.
  void Analyze(std::function<void(QWidget&)> act) {
    desk.AnswerBox(QMessageBox::Yes);
    desk.When("DeepF", std::move(act));
    Trigger("Analize");
  }
  /// Deep Finesse, which goes on beside.
  QWidget& AnalyzeBeside() {
    desk.Store.Set(kAnalyzer, "1");
    desk.AnswerBox(QMessageBox::Yes);
    Trigger("Analize");
    desk.Loop.Pump();
    QWidget* window = test::TopWindow("DeepF");
    if (window == nullptr) std::abort();
    return *window;
  }
  static int Bar(QWidget& window, const char* name) {
    return test::Find<QProgressBar>(window, name).value();
  }
  [[nodiscard]] bool IsOpen() const { return test::TopWindow("DeepF") != nullptr; }
  [[nodiscard]] std::string LastLine() const { return desk.LogLines().back(); }

  ScriptedSolver solver{desk};
};

TEST_F(DeepFWindowTest, ShowsTheBoardAndHowFarItHasGot) {
  solver.Script = {{.AfterMs = 3000}};
  Analyze([this](QWidget& window) {
    EXPECT_TRUE(window.isModal());
    EXPECT_EQ(window.windowTitle(), "Bo Haglund DDS");
    EXPECT_EQ(test::TextOf(window, "DF_Label"), "Preparing for analize....");
    desk.Loop.WaitMs(107 + 1023);  // 20 ticks of 100
    EXPECT_EQ(test::TextOf(window, "DF_Label"), "Analyzing board: 1  out from: 1 to: 3");
    EXPECT_EQ(Bar(window, "DF_Progress"), 20);
    EXPECT_EQ(test::TextOf(window, "lblBoards"), "Boards done: 0 of 3");
    desk.Loop.WaitMs(3000);
    EXPECT_EQ(test::TextOf(window, "DF_Label"), "Analyzing board: 2  out from: 1 to: 3");
    EXPECT_EQ(Bar(window, "DF_Boards"), 1);
    EXPECT_EQ(test::TextOf(window, "lblBoards"), "Boards done: 1 of 3");
  });
  EXPECT_FALSE(IsOpen());
  EXPECT_FALSE(desk.Prog.AnalysisRunning);
  EXPECT_EQ(desk.Prog.Set.At(3).Tricks[0], 4);
  EXPECT_FALSE(menu->isWindowModified());
  EXPECT_EQ(Text("Panel1"), "Ready");
  EXPECT_THAT(desk.Boxes, SizeIs(1)) << "the question";
}

TEST_F(DeepFWindowTest, NothingScrollsWhereThereIsRoom) {
  desk.Prog.Set.Clear();
  test::FillSet(desk.Prog.Set, 601, 640);
  solver.AnswersBreaks = true;
  Analyze([this](QWidget& window) {
    desk.Loop.WaitMs(2500);
    EXPECT_EQ(test::TextOf(window, "DF_Label"), "Analyzing board: 603  out from: 601 to: 640");
    for (const auto* bar : window.findChildren<QScrollBar*>()) EXPECT_EQ(bar->maximum(), 0);
    const auto& label = test::Find<QLabel>(window, "DF_Label");
    EXPECT_GE(label.width(), label.sizeHint().width());
    test::Click(window, "DF_Cancel");
  });
}

TEST_F(DeepFWindowTest, TheButtonCancels) {
  solver.AnswersBreaks = true;
  Analyze([this](QWidget& window) {
    desk.Loop.WaitMs(300);
    test::Click(window, "DF_Cancel");
    EXPECT_EQ(test::TextOf(window, "DF_Label"), "Canceling... Please wait");
    EXPECT_TRUE(test::Enabled(window, "DF_Cancel"));
    EXPECT_TRUE(window.isVisible()) << "the solver has to answer";
  });
  EXPECT_FALSE(IsOpen());
  EXPECT_EQ(desk.Store.Get(kSolverBreak), "98");
  EXPECT_THAT(LastLine(), ::testing::EndsWith(" Cancel Board: 1"));
}

TEST_F(DeepFWindowTest, EscapeSpaceAltCAndTheCloseBoxDoTheSame) {
  solver.AnswersBreaks = true;
  const auto expectToCancel = [this](const char* how, const std::function<void(QWidget&)>& leave) {
    Analyze([&](QWidget& window) {
      desk.Loop.WaitMs(300);
      EXPECT_EQ(desk.Store.Get(kSolverBreak), "00") << how;
      leave(window);
      EXPECT_TRUE(window.isVisible()) << "the solver has to answer: " << how;
      EXPECT_EQ(test::TextOf(window, "DF_Label"), "Canceling... Please wait") << how;
      EXPECT_EQ(desk.Store.Get(kSolverBreak), "98") << how;
    });
    EXPECT_FALSE(IsOpen()) << how;
    EXPECT_THAT(LastLine(), ::testing::EndsWith(" Cancel Board: 1")) << how;
  };
  expectToCancel("Escape", [](QWidget& window) { test::Press(window, Qt::Key_Escape); });
  expectToCancel("Space", [](QWidget& window) { test::Press(window, Qt::Key_Space); });
  expectToCancel("Alt+C", [](QWidget& window) {
    test::Press(window, Qt::Key_C, Qt::AltModifier);
    const auto& button = test::Find<QPushButton>(window, "DF_Cancel");
    EXPECT_TRUE(QTest::qWaitFor([&button] { return !button.isDown(); }));
  });
  expectToCancel("close box", [](QWidget& window) { EXPECT_FALSE(window.close()); });
}

/// It may be the one that has answered the question, held down.
TEST_F(DeepFWindowTest, EnterDoesNotCancel) {
  Analyze([this](QWidget& window) {
    desk.Loop.WaitMs(300);
    test::Press(window, Qt::Key_Return);
    EXPECT_EQ(desk.Store.Get(kSolverBreak), "00");
  });
  EXPECT_THAT(LastLine(), ::testing::StartsWith("    DDS: 1,3 ver: 9.9  3."));
}

TEST_F(DeepFWindowTest, ASolverThatHasDiedIsToldAndACancelCloses) {
  solver.Script = {{.AfterMs = -1, .DiesAfterMs = 500}};
  Analyze([this](QWidget& window) {
    desk.Loop.WaitMs(5000);
    EXPECT_EQ(test::TextOf(window, "DF_Label"), "The solver has ended without an answer");
    EXPECT_TRUE(window.isVisible());
    test::Click(window, "DF_Cancel");
  });
  EXPECT_FALSE(IsOpen());
  EXPECT_FALSE(desk.Prog.AnalysisRunning);
  EXPECT_THAT(LastLine(), ::testing::EndsWith(" Cancel Board: 1"));
}

TEST_F(DeepFWindowTest, AnErrorIsTold) {
  solver.Script = {{.Code = "92"}};
  Analyze([this](QWidget&) { desk.AnswerBox(QMessageBox::Ok); });
  ASSERT_THAT(desk.Boxes, SizeIs(2));
  EXPECT_EQ(desk.Boxes[1].Title, "Bo Haglund DDS Error");
  EXPECT_EQ(desk.Boxes[1].Text, "DLL not found");
  EXPECT_FALSE(IsOpen());
}

TEST_F(DeepFWindowTest, GoesWithTheProgramAndAsksNothing) {
  Analyze([this](QWidget&) {
    desk.Loop.WaitMs(300);
    desk.Loop.Quit();
  });
  EXPECT_FALSE(IsOpen());
  EXPECT_EQ(desk.Store.Get(kSolverBreak), "98");
  EXPECT_FALSE(desk.Prog.AnalysisRunning);
}

// Beside the flows.

TEST_F(DeepFWindowTest, DeepFinesseLeavesTheMainWindowFree) {
  QWidget& window = AnalyzeBeside();
  EXPECT_EQ(window.windowTitle(), "Deep Finesse");
  EXPECT_FALSE(window.isModal());
  EXPECT_EQ(window.parentWidget(), nullptr);
  desk.AnswerBox(QMessageBox::Ok);
  menu->activateWindow();
  desk.Loop.Pump();
  test::Press(*menu, Qt::Key_N, Qt::ControlModifier);  // reaches the main window, and is refused
  desk.Loop.Pump();
  ASSERT_THAT(desk.Boxes, SizeIs(2));
  EXPECT_EQ(desk.Boxes[1].Title, "New Error");
  desk.Loop.WaitMs(5000);
  EXPECT_FALSE(IsOpen());
  EXPECT_EQ(desk.Prog.Set.At(3).Tricks[0], 4);
}

TEST_F(DeepFWindowTest, DeepFinesseStandsBesideTheMainWindowWhereThereIsRoom) {
  const QSize room = menu->screen()->availableSize();
  menu->move(0, 0);
  menu->resize(room.width(), room.height() / 2);
  const QWidget& window = AnalyzeBeside();
  EXPECT_FALSE(window.frameGeometry().intersects(menu->frameGeometry()));
  const QRect place = window.geometry();  // the frame is known when it is there
  EXPECT_TRUE(menu->screen()->availableGeometry().contains(place))
      << place.x() << " " << place.y() << " " << place.width() << " " << place.height();
}

TEST_F(DeepFWindowTest, BesideTheEditorItCanBeCancelled) {
  solver.AnswersBreaks = true;
  QWidget& window = AnalyzeBeside();
  desk.Loop.WaitMs(300);
  desk.When("Edit", [&](QWidget& editor) {
    test::Click(window, "DF_Cancel");
    desk.Loop.WaitMs(2000);
    EXPECT_FALSE(IsOpen());
    EXPECT_TRUE(editor.isVisible());
    test::Press(editor, Qt::Key_Escape);
  });
  Trigger("menuEdit");
  EXPECT_FALSE(desk.Prog.AnalysisRunning);
}

/// The box stands there while the machine deals on.
TEST_F(DeepFWindowTest, ItsErrorHoldsUpNoDealingRun) {
  solver.Script = {{.Code = "92", .AfterMs = 10'000}};
  AnalyzeBeside();
  desk.When("DealinProg", [&](QWidget& window) {
    desk.Loop.WaitMs(machine::MachineRun::kFirstContactMs + 100);
    QWidget* box = nullptr;
    desk.When("MessageBox", [&box](QWidget& shown) { box = &shown; });
    test::Click(window, "cmdDeal");  // returns when the board is dealt
    EXPECT_EQ(test::TextOf(window, "txtStatus"), "Idle");
    EXPECT_EQ(simulated.DealtBoard().Cards, desk.Prog.Set.At(1).Cards);
    ASSERT_NE(box, nullptr);
    EXPECT_TRUE(box->isVisible()) << "nobody has answered it";
    EXPECT_FALSE(desk.Prog.AnalysisRunning);
    test::Press(*box, Qt::Key_Return);
    EXPECT_EQ(test::TopWindow("MessageBox"), nullptr);
    test::Click(window, "cmdExit");
  });
  Trigger("menuDeal");
  EXPECT_EQ(desk.Boxes.back().Text, "DLL not found");
}

/// A modal window of the main window neither waits for the box nor blocks it.
TEST_F(DeepFWindowTest, ItsErrorIsToldBesideTheEditor) {
  solver.Script = {{.Code = "92"}};
  AnalyzeBeside();
  desk.When("Edit", [&](QWidget& editor) {
    desk.When("MessageBox", [&](QWidget& box) {
      EXPECT_FALSE(box.isModal());
      test::Click(editor, "cmdNext");
      EXPECT_EQ(test::TextOf(editor, "lblBoard"), "2 of 1 - 3");
      test::Press(box, Qt::Key_Return);  // it goes with its answer
      EXPECT_EQ(test::TopWindow("MessageBox"), nullptr);
    });
    desk.Loop.WaitMs(3000);
    EXPECT_FALSE(desk.Prog.AnalysisRunning);
    test::Press(editor, Qt::Key_Escape);
  });
  Trigger("menuEdit");
  ASSERT_THAT(desk.Boxes, SizeIs(2));
  EXPECT_EQ(desk.Boxes[1].Title, "Deep Finesse Error");
  EXPECT_EQ(test::TopWindow("MessageBox"), nullptr);
}

TEST_F(DeepFWindowTest, TheMainWindowDoesNotCloseOverIt) {
  AnalyzeBeside();
  desk.AnswerBox(QMessageBox::Ok);
  EXPECT_FALSE(menu->close());
  EXPECT_EQ(desk.Boxes.back().Title, "Exit Error");
  EXPECT_TRUE(IsOpen());
}

// From the editor.

TEST_F(DeepFWindowTest, TheEditorShowsTheTableBehindIt) {
  solver.Script = {{.Result = "12345670123456701234"}};
  desk.When("Edit", [&](QWidget& editor) {
    EXPECT_FALSE(test::Visible(editor, "DF_NR0"));
    desk.When("DeepF", [&](QWidget& window) {
      EXPECT_TRUE(window.isModal());
      EXPECT_EQ(window.parentWidget(), &editor);
      EXPECT_FALSE(test::Visible(window, "DF_Boards")) << "of one board there is no count";
      desk.Loop.WaitMs(200);
      EXPECT_EQ(test::TextOf(window, "DF_Label"), "Analyzing board: 1");
    });
    test::Press(editor, Qt::Key_Z, Qt::AltModifier);
    EXPECT_FALSE(IsOpen());
    EXPECT_TRUE(test::Visible(editor, "DF_NR0"));
    for (int i = 0; i < 20; ++i) {
      EXPECT_EQ(test::TextOf(editor, ("DF_NR" + std::to_string(i)).c_str()),
                std::string(1, "12345670123456701234"[i]));
    }
    test::Press(editor, Qt::Key_Escape);
  });
  Trigger("menuEdit");
  EXPECT_THAT(desk.Boxes, IsEmpty());
  EXPECT_FALSE(desk.Prog.AnalysisRunning);
}

/// Worked by hand: each declarer's levels stand in its row, under their denominations.
TEST_F(DeepFWindowTest, TheEditorsLabelsStandAsTheAsymmetricBoardHasThem) {
  solver.Script = {{.Result = test::kAsymmetricResult}};
  desk.Prog.Set.At(1) = test::AsymmetricBoard(kNorth);
  desk.When("Edit", [&](QWidget& editor) {
    desk.When("DeepF", [](QWidget&) {});
    test::Click(editor, "Analyze");
    std::map<int, std::map<int, std::string>> rows;
    std::map<std::string, std::string> levels;
    for (const auto* label : editor.findChildren<QLabel*>()) {
      if (!label->objectName().startsWith("DF_NR")) continue;
      const QPoint middle = label->geometry().center();
      rows[middle.y()][middle.x()] += label->text().toStdString();
      levels[label->accessibleName().toStdString()] = label->text().toStdString();
    }
    std::vector<std::string> lines;
    for (const auto& [y, row] : rows) {
      lines.emplace_back();
      for (const auto& [x, level] : row) lines.back() += level;
    }
    EXPECT_THAT(lines, ::testing::ElementsAre("70077", "05700", "00077", "05700"));
    EXPECT_EQ(levels["North no-trump"] + levels["South no-trump"], "70");
    EXPECT_EQ(levels["East spades"] + levels["East hearts"], "57");
    EXPECT_EQ(levels["South diamonds"] + levels["West clubs"], "70");
    test::Press(editor, Qt::Key_Escape);
  });
  Trigger("menuEdit");
}

}  // namespace
}  // namespace morvane::shell
