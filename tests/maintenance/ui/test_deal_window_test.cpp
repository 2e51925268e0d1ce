#include "maintenance/ui/test_deal_window.h"

#include <gmock/gmock.h>

#include <QProgressBar>

#include "maintenance/paper_deck.h"
#include "maintenance/ui/console_desk.h"
#include "maintenance/ui/test_deck_view.h"
#include "platform/qt/window_place.h"

namespace morvane::maintenance {
namespace {

using ::testing::ElementsAre;
using ::testing::SizeIs;

class TestDealWindowTest : public ConsoleDesk {
 protected:
  PaperDeck deck;
  std::vector<int> codes;                ///< of the deal's frames
  std::vector<int> breaks;               ///< bit 0 of each poll
  std::function<void(int poll)> Behind;  ///< once the window shows the poll, from 1

  void SetUp() override {
    ConsoleDesk::SetUp();
    camera.Answer = [this](const test::Bytes& plain) { return Answered(plain); };
  }
  /// Up to the end, the prompt having been answered with OK.
  void Run(std::deque<PaperDeck::Status> plan) {
    if (window == nullptr) Contact();
    Begin(std::move(plan));
    desk.AnswerBox(QMessageBox::Ok);
    console.DealTest();
  }
  void Begin(std::deque<PaperDeck::Status> plan) {
    deck.Plan = std::move(plan);
    codes.clear();
    breaks.clear();
  }
  static QWidget* Form() { return test::TopWindow("TestDealForm"); }
  static std::string TextOf(const char* name) { return test::TextOf(*Form(), name); }
  static std::string Deck() {
    return test::Find<TestDeckView>(*Form(), "TestDeck").SpokenText().toStdString();
  }
  static int Progress() { return test::Find<QProgressBar>(*Form(), "TestDealProgress").value(); }
  static void PressLetter() {
    const auto& button = test::Find<QAbstractButton>(*Form(), "TestDealCancel");
    Form()->activateWindow();
    test::Press(*Form(), Qt::Key_C, Qt::AltModifier);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !button.isDown(); }));
  }
  static void Cancel() { test::Click(*Form(), "TestDealCancel"); }

 private:
  test::Bytes Answered(const test::Bytes& plain) {
    if (plain[0] == 0x1A && codes.empty()) return {};
    test::Bytes reply = deck.Plan.empty() ? test::Bytes{} : deck.PlainReplyTo(plain);
    if (reply.empty()) return reply;
    codes.push_back(plain[0]);
    if (plain[0] != 0x19) return reply;
    breaks.push_back(plain[1] & 1);
    const int poll = static_cast<int>(breaks.size());
    desk.Loop.After(50, [this, poll] {
      if (Behind && Form() != nullptr) Behind(poll);
    });
    return reply;
  }
};

TEST_F(TestDealWindowTest, TellsHowFarTheDealIs) {
  bool looked = false;
  Behind = [&](int poll) {
    if (poll != 2) return;
    looked = true;
    EXPECT_EQ(TextOf("Doing"), "Card 27 of 52");
    EXPECT_EQ(Progress(), 50);
    EXPECT_EQ(Deck(), "26 of 52 cards seen");
    EXPECT_EQ(TextOf("Number"), "Deal: 1");
    EXPECT_EQ(TextOf("Finished"), "Without a difference: 0");
    EXPECT_EQ(TextOf("CardsSeen"), "Cards seen: 26");
    EXPECT_TRUE(test::Enabled(*Form(), "TestDealCancel"));
    EXPECT_FALSE(window->isActiveWindow());
  };
  desk.AnswerBox(QMessageBox::Ok);  // the prompt
  desk.AnswerBox(QMessageBox::Cancel);
  Contact();
  Begin({{255, 1}, {255, 26}, {255, 40}, {0, 52}});
  console.DealTest();
  EXPECT_TRUE(looked);
  EXPECT_EQ(Form(), nullptr);
}

TEST_F(TestDealWindowTest, CancelsByEscapeCloseBoxLetterAndClick) {
  const std::vector<std::function<void()>> ways{[] { test::Press(*Form(), Qt::Key_Escape); },
                                                [] { Form()->close(); }, [] { PressLetter(); },
                                                [] { Cancel(); }};
  for (std::size_t way = 0; way < ways.size(); ++way) {
    SCOPED_TRACE(std::to_string(way));
    std::string doing;
    Behind = [&](int poll) {
      if (poll != 2) return;
      ways[way]();
      doing = TextOf("Doing");
    };
    Run({{255, 1}, {255, 2}, {255, 3}, {57, 3}});
    EXPECT_THAT(breaks, ElementsAre(0, 0, 1, 0));
    EXPECT_EQ(doing, "Stopping the machine ...");
    EXPECT_EQ(Form(), nullptr);
  }
  EXPECT_THAT(desk.Boxes, SizeIs(ways.size())) << "the prompts alone";
  EXPECT_FALSE(console.Closed());
}

TEST_F(TestDealWindowTest, EnterHeldDownOverThePromptCancelsNothing) {
  Behind = [&](int poll) {
    if (poll != 1) return;
    QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, "\r", true);
    QApplication::sendEvent(&test::Find<QWidget>(*Form(), "TestDealCancel"), &held);
  };
  Contact();
  desk.AnswerBox(QMessageBox::Ok);
  desk.AnswerBox(QMessageBox::Cancel);
  Begin({{255, 1}, {255, 2}, {0, 52}});
  console.DealTest();
  EXPECT_THAT(breaks, ElementsAre(0, 0, 0));
}

TEST_F(TestDealWindowTest, WhatWasSeenCanBeReadBesideTheQuestion) {
  deck.Verdict = {0x25, 0, 7, 11, 1, 46, 62};
  Contact();
  desk.AnswerBox(QMessageBox::Ok);
  bool looked = false;
  desk.When("MessageBox", [&](QWidget& box) {
    looked = true;
    ASSERT_NE(Form(), nullptr);
    EXPECT_EQ(TextOf("Doing"), "Stopped at card 9, error 62: expected ST, seen JS");
    EXPECT_EQ(Deck(), "8 of 52 cards seen, expected ST, taken for JS");
    EXPECT_FALSE(test::Enabled(*Form(), "TestDealCancel"));
    Form()->close();
    EXPECT_TRUE(Form()->isVisible());
    static_cast<QMessageBox&>(box).button(QMessageBox::Cancel)->click();
  });
  Begin({{255, 4}, {62, 8}});
  console.DealTest();
  EXPECT_TRUE(looked);
  EXPECT_EQ(desk.Boxes[1].Title, "Test Deal");
  EXPECT_EQ(Form(), nullptr);
}

TEST_F(TestDealWindowTest, TotalsGoOnThroughTheDeals) {
  std::vector<std::string> totals;
  Behind = [&](int poll) {
    if (poll % 2 == 1) {
      totals.push_back(TextOf("Number") + ", " + TextOf("Finished") + ", " + TextOf("CardsSeen"));
    }
  };
  Contact();
  desk.AnswerBox(QMessageBox::Ok);
  desk.AnswerBox(QMessageBox::Ok);
  desk.AnswerBox(QMessageBox::Ok);
  desk.AnswerBox(QMessageBox::Cancel);
  Begin({{255, 1}, {0, 52}, {255, 2}, {0, 52}, {255, 3}, {0, 52}});
  console.DealTest();
  EXPECT_THAT(totals, ElementsAre("Deal: 1, Without a difference: 0, Cards seen: 1",
                                  "Deal: 2, Without a difference: 1, Cards seen: 54",
                                  "Deal: 3, Without a difference: 2, Cards seen: 107"));
}

TEST_F(TestDealWindowTest, AFaultIsAnsweredOverIt) {
  Contact();
  desk.AnswerBox(QMessageBox::Ok);
  desk.When("Error_disp", [&](QWidget& dialog) {
    EXPECT_EQ(dialog.parentWidget(), Form());
    EXPECT_EQ(test::TextOf(dialog, "Error_board"), "Card 17 of 52");
    test::Click(dialog, "Continue_button");
  });
  desk.When("Error_disp", [&](QWidget& dialog) { test::Press(dialog, Qt::Key_Escape); });
  Begin({{255, 4}, {55, 16}, {255, 20}, {58, 20}});
  console.DealTest();
  EXPECT_THAT(codes, ElementsAre(0x9F, 0x98, 0x19, 0x19, 0x98, 0x19, 0x19, 0x1A));
  EXPECT_THAT(desk.Boxes, SizeIs(1));
  EXPECT_EQ(Form(), nullptr);
}

TEST_F(TestDealWindowTest, TheEndOfTheProgramBreaksIt) {
  Behind = [&](int poll) {
    if (poll == 2) desk.Loop.Quit();
  };
  Run({{255, 1}, {255, 2}, {57, 3}});
  EXPECT_THAT(breaks, ElementsAre(0, 0, 1));
  EXPECT_EQ(Form(), nullptr);
}

TEST_F(TestDealWindowTest, ClosingTheConsoleBreaksItAndClosesBoth) {
  Behind = [&](int poll) {
    if (poll == 2) window->close();
  };
  Run({{255, 1}, {255, 2}, {57, 3}});
  EXPECT_THAT(breaks, ElementsAre(0, 0, 1));
  EXPECT_EQ(Form(), nullptr);
  EXPECT_TRUE(console.Closed());
}

TEST_F(TestDealWindowTest, ALostLinkEndsItAndTheServiceBehindOneBox) {
  Behind = [&](int poll) {
    if (poll != 2) return;
    camera.Answer = nullptr;
    simulated.PowerOff();
    desk.AnswerBox(QMessageBox::Ok);
  };
  Run({{255, 1}});
  EXPECT_EQ(Form(), nullptr);
  EXPECT_TRUE(console.Closed());
  ASSERT_THAT(desk.Boxes, SizeIs(2)) << "the prompt, and one for the link";
  EXPECT_EQ(desk.Boxes[1].Title, "Communication Error");
}

TEST_F(TestDealWindowTest, StandsOnASmallScreen) {
  bool looked = false;
  Behind = [&](int poll) {
    if (poll != 1) return;
    const QRect screen(0, 0, 800, 600);
    FitToScreen(*Form(), screen);
    EXPECT_TRUE(screen.contains(Form()->frameGeometry()));
    const auto& cancel = test::Find<QWidget>(*Form(), "TestDealCancel");
    EXPECT_TRUE(Form()->rect().contains(QRect(cancel.mapTo(Form(), QPoint()), cancel.size())));
    looked = true;
    Cancel();
  };
  Run({{255, 1}, {57, 1}});
  EXPECT_TRUE(looked);
}

/// The cell of a card, as it is painted.
QImage CellOf(int number) {
  auto& deck = test::Find<TestDeckView>(*test::TopWindow("TestDealForm"), "TestDeck");
  return deck.grab(deck.PlaceOf(number)).toImage().convertToFormat(QImage::Format_Mono);
}

TEST_F(TestDealWindowTest, NoMarkIsToldByColourAlone) {
  deck.Verdict = {0x25, 0, 7, 10, 2, 46, 62};  // the ten of hearts for that of spades
  Contact();
  desk.AnswerBox(QMessageBox::Ok);
  bool looked = false;
  desk.When("MessageBox", [&](QWidget& box) {
    looked = true;
    const QImage expected = CellOf(9);
    const QImage takenFor = CellOf(22);
    const QImage ahead = CellOf(35);
    EXPECT_NE(expected, takenFor);
    EXPECT_NE(expected, ahead);
    EXPECT_NE(takenFor, ahead);
    static_cast<QMessageBox&>(box).button(QMessageBox::Cancel)->click();
  });
  Begin({{62, 8}});
  console.DealTest();
  EXPECT_TRUE(looked);
}

}  // namespace
}  // namespace morvane::maintenance
