// A run in `Generate`: what is refused, what is shown meanwhile, and what is pressed meanwhile.

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>

#include "generate/ui/generate_window_desk.h"

namespace morvane::generate {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

class GenerateRunTest : public GenerateWindowTest {
 protected:
  /// Does `act` in each pump of the run that `press` starts.
  void InEachPump(QWidget& window, const char* press, const std::function<void()>& act) {
    running_ = true;
    PostAgain(act);
    test::Click(window, press);
    running_ = false;
    desk.Loop.Pump();  // the last one posted
  }

 private:
  void PostAgain(const std::function<void()>& act) {
    desk.Loop.Post([this, act] {
      if (!running_) return;
      act();
      PostAgain(act);
    });
  }
  bool running_ = false;
};

TEST_F(GenerateRunTest, ShowsEachBoardAsItIsMade) {
  Open([this](QWidget& window) {
    Range(window, "11", "15");
    std::vector<std::string> texts;
    std::vector<int> bars;
    InEachPump(window, "bigdeal", [&] {
      const std::string text = Text(window, "BoardsGen");
      if (texts.empty() || texts.back() != text) {
        texts.push_back(text);
        bars.push_back(test::Find<QProgressBar>(window, "Progress").value());
      }
      EXPECT_FALSE(test::Enabled(window, "cmdExit"));
      EXPECT_FALSE(test::Enabled(window, "cmdDeal"));
      EXPECT_FALSE(test::Enabled(window, "bigdeal"));
      EXPECT_FALSE(test::Enabled(window, "txtFirstBoard"));
      EXPECT_FALSE(test::Enabled(window, "Copy"));
    });
    EXPECT_THAT(texts, ElementsAre("", "1", "2", "3", "4", "5"));
    EXPECT_THAT(bars, ElementsAre(0, 1, 2, 3, 4, 5));
    EXPECT_EQ(test::Find<QProgressBar>(window, "Progress").maximum(), 5);
    EXPECT_TRUE(test::Enabled(window, "cmdExit"));
    EXPECT_TRUE(test::Enabled(window, "cmdDeal"));
    EXPECT_TRUE(test::Enabled(window, "bigdeal"));
  });
}

TEST_F(GenerateRunTest, WhatIsPressedMeanwhileDoesNothing) {
  test::WriteContent(desk.Folder / "evening.pbn", "[Board \"9\"]\r\n");
  int rounds = 0;
  Open([&](QWidget& window) {
    Range(window, "1", "5");
    InEachPump(window, "cmdDeal", [&] {
      ++rounds;
      for (const auto key : {Qt::Key_Return, Qt::Key_Escape, Qt::Key_Space, Qt::Key_Tab}) {
        test::Press(window, key);
      }
      test::Press(window, Qt::Key_G, Qt::AltModifier);
      test::Press(window, Qt::Key_X, Qt::AltModifier);
      test::Press(*menu, Qt::Key_N, Qt::ControlModifier);
      test::Press(*menu, Qt::Key_O, Qt::ControlModifier);
      test::Type(window, "77");
      for (const char* name :
           {"cmdDeal", "bigdeal", "cmdExit", "generate_no", "Reject_inner", "txtLastBoard"}) {
        test::Click(window, name);
      }
      EXPECT_FALSE(window.close());
      EXPECT_FALSE(menu->close());
      shell.MenuNew();
      shell.LinkExecute("1" + (desk.Folder / "evening.pbn"));
    });
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(Text(window, "txtFirstBoard") + " " + Text(window, "txtLastBoard"), "1 5");
    EXPECT_TRUE(test::Find<QAbstractButton>(window, "generate_yes").isChecked());
    EXPECT_TRUE(test::Find<QAbstractButton>(window, "Reject_inner").isChecked());
    EXPECT_EQ(Text(window, "BoardsGen"), "5");
  });
  EXPECT_GT(rounds, 5) << "in each board, and before the controls come on";
  EXPECT_THAT(desk.Boxes, IsEmpty());
  EXPECT_EQ(desk.Prog.Set.LastBoard, 5);
  const auto lines = desk.LogLines();
  EXPECT_EQ(std::count(lines.begin(), lines.end(), "  Generate: 1,5 : 0,1,1 : 0,0,0"), 1);
  // The link command has waited; the set that it would replace is asked about first.
  desk.AnswerBox(QMessageBox::No);
  desk.Loop.WaitMs(shell::Shell::kTimer2Ms);
  EXPECT_EQ(desk.Prog.Set.FirstBoard, 9);
}

TEST_F(GenerateRunTest, ASecondClickBeforeTheFirstIsServedMakesOneSet) {
  Open([this](QWidget& window) {
    auto& button = test::Find<QWidget>(window, "bigdeal");
    desk.Loop.Post([&] { test::Click(button); });
    test::Click(button);
  });
  const auto lines = desk.LogLines();
  EXPECT_EQ(std::count_if(lines.begin(), lines.end(),
                          [](const std::string& line) { return line.starts_with("  Generate: "); }),
            1);
}

/// In all its height.
bool InSight(const QWidget& window, const char* name) {
  const auto& control = test::Find<QWidget>(window, name);
  return control.visibleRegion().boundingRect().height() == control.height();
}

TEST_F(GenerateRunTest, OnASmallScreenProgressAndResultComeIntoSight) {
  for (const char* choice : {"generate_yes", "generate_no"}) {
    Open([this, choice](QWidget& window) {
      window.resize(640, 440);
      desk.Loop.Pump();
      test::Click(window, choice);
      desk.Loop.Pump();
      ASSERT_FALSE(InSight(window, "BoardsGen") || InSight(window, "Result"));
      InEachPump(window, "cmdDeal", [&] { EXPECT_TRUE(InSight(window, "BoardsGen")); });
      EXPECT_TRUE(InSight(window, "BoardsGen")) << choice;
      EXPECT_TRUE(InSight(window, "Progress")) << choice;
      EXPECT_TRUE(InSight(window, "Result")) << choice;
      Range(window, "9", "8");
      desk.AnswerBox(QMessageBox::Ok);
      test::Click(window, "cmdDeal");
      window.activateWindow();  // as window managers do behind a box
      desk.Loop.Pump();
      EXPECT_TRUE(InSight(window, "txtFirstBoard")) << "it is to be corrected";
    });
    desk.Prog.Set.MarkSaved();
  }
}

/// Enter goes down and stays down for so many repeats.
void HoldEnter(QWidget& window, int repeats) {
  for (int press = 0; press <= repeats && window.isVisible(); ++press) {
    QKeyEvent event(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, "\r", press > 0);
    QApplication::sendEvent(window.windowHandle(), &event);
  }
  QKeyEvent up(QEvent::KeyRelease, Qt::Key_Return, Qt::NoModifier);
  QApplication::sendEvent(window.windowHandle(), &up);
}

TEST_F(GenerateRunTest, EnterHeldDownGeneratesOnceAndDoesNotLeave) {
  Open([](QWidget& window) {
    Range(window, "1", "2");
    HoldEnter(window, 5);
    EXPECT_TRUE(window.isVisible()) << "the result is still to be read";
    EXPECT_EQ(Focus(window), "cmdExit");
    test::Press(window, Qt::Key_Return);
    EXPECT_FALSE(window.isVisible());
  });
  EXPECT_EQ(desk.Prog.Set.LastBoard, 2);
}

TEST_F(GenerateRunTest, EnterHeldDownBehindRejectionsGeneratesOnce) {
  Start();
  shell.Deals().Limits.InnerLimit = 8;
  Open([](QWidget& window) {
    HoldEnter(window, 5);
    EXPECT_NE(Text(window, "txtInnRejects"), "0");
    EXPECT_EQ(Focus(window), "bigdeal");
    HoldEnter(window, 5);
  });
  const auto lines = desk.LogLines();
  EXPECT_EQ(std::count_if(lines.begin(), lines.end(),
                          [](const std::string& line) { return line.starts_with("  Generate: "); }),
            2);
}

TEST_F(GenerateRunTest, ARangeThatCannotBeGoesBackToTheBoxNamed) {
  Open([this](QWidget& window) {
    for (const auto& [first, last, box] :
         {std::tuple("641", "641", "txtFirstBoard"), std::tuple("1", "641", "txtLastBoard"),
          std::tuple("40", "32", "txtFirstBoard")}) {
      Range(window, first, last);
      desk.AnswerBox(QMessageBox::Ok);
      test::Click(window, "cmdDeal");
      EXPECT_EQ(Focus(window), box);
      EXPECT_EQ(test::Find<QLineEdit>(window, box).selectedText(),
                test::Find<QLineEdit>(window, box).text());
      EXPECT_TRUE(test::Enabled(window, "cmdExit"));
    }
    Range(window, "640", "640");
    test::Press(window, Qt::Key_Return);
  });
  ASSERT_THAT(desk.Boxes, SizeIs(3));
  EXPECT_EQ(desk.Boxes[0].Title, "Generate New Board Set");
  EXPECT_EQ(desk.Boxes[0].Text, "Maximum allowable value for the First Board Number is 640.");
  EXPECT_EQ(desk.Boxes[1].Text, "Maximum allowable value for the Last Board Number is 640.");
  EXPECT_EQ(desk.Boxes[2].Text,
            "Last Board Number must be greater or equal to the First Board Number.");
  EXPECT_EQ(desk.Prog.Set.FirstBoard, 640);
  EXPECT_EQ(desk.Prog.Set.LastBoard, 640);
}

TEST_F(GenerateRunTest, TheFailedSystemSourceIsToldAndTheWindowGoesOn) {
  desk.Random.AllZero = true;
  Open([this](QWidget& window) {
    desk.AnswerBox(QMessageBox::Ok);
    test::Click(window, "bigdeal");
    EXPECT_FALSE(desk.Prog.Set.Exists());
    EXPECT_EQ(Focus(window), "bigdeal");
    test::Click(window, "cmdDeal");
    EXPECT_EQ(desk.Prog.Set.LastBoard, 32) << "the other generator needs no such source";
  });
  ASSERT_THAT(desk.Boxes, SizeIs(1));
  EXPECT_EQ(desk.Boxes[0].Title, "Generate New Board Set");
  EXPECT_EQ(desk.Boxes[0].Text,
            "Error: 999 in RtlGenRandom procedure\n\nBoard Set cannot be generated");
}

TEST_F(GenerateRunTest, WhenItCannotBeGeneratedTheMainWindowShowsNoSet) {
  Start();
  test::FillSet(desk.Prog.Set, 1, 8);
  shell.Deals().Limits.InnerLimit = 0;
  Open([this](QWidget& window) {
    desk.AnswerBox(QMessageBox::Ok);
    test::Click(window, "bigdeal");
    EXPECT_EQ(test::Find<QProgressBar>(window, "Progress").value(), 0);
    EXPECT_TRUE(test::Enabled(window, "cmdExit"));
  });
  EXPECT_EQ(desk.Boxes.at(0).Text, "Cannot generate!");
  EXPECT_EQ(test::TextOf(*menu, "txtLastBoard"), "");
}

TEST_F(GenerateRunTest, EscapeAndTheCloseBoxLeave) {
  Open([](QWidget& window) {
    test::Press(window, Qt::Key_Escape);
    EXPECT_FALSE(window.isVisible());
  });
  Open([](QWidget& window) { EXPECT_TRUE(window.close()); });
  EXPECT_FALSE(desk.Prog.Set.Exists());
  EXPECT_EQ(test::TextOf(*menu, "Panel1"), "Ready");
}

TEST_F(GenerateRunTest, TheProgramsEndEndsIt) {
  Open([this](QWidget&) { desk.Loop.Quit(); });
  EXPECT_FALSE(desk.Prog.Set.Exists());
}

TEST_F(GenerateRunTest, TheProgramsEndInTheMiddleOfARunLeavesNoSet) {
  Open([this](QWidget& window) {
    InEachPump(window, "bigdeal", [&] {
      if (Text(window, "BoardsGen") == "7") desk.Loop.Quit();
    });
    EXPECT_EQ(Text(window, "BoardsGen"), "7");
  });
  EXPECT_FALSE(desk.Prog.Set.Exists());
  EXPECT_THAT(desk.Boxes, IsEmpty());
}

}  // namespace
}  // namespace morvane::generate
