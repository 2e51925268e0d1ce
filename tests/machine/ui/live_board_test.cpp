#include <QLabel>
#include <QListWidget>
#include <QPaintEvent>
#include <QPicture>
#include <QScrollBar>

#include "machine/ui/board_picture.h"
#include "machine/ui/run_colours.h"
#include "machine/ui/run_window.h"

namespace morvane::machine {
namespace {

using ::testing::HasSubstr;

constexpr int kMidBoard = 5000;  // milliseconds

/// What the window shows of a board while it is dealt.
class LiveBoard : public RunWindow {
 protected:
  void SetUp() override {
    RunWindow::SetUp();
    desk.Store.Set(kDealShow, "1");
  }
  [[nodiscard]] std::string Ground(const char* name) const {
    const QString style = test::Find<QWidget>(*window, name).styleSheet();
    return style.section(':', 1).left(7).toStdString();
  }
  [[nodiscard]] std::string Said(const char* name) const {
    const auto& spoken = dynamic_cast<Spoken&>(test::Find<QWidget>(*window, name));
    return spoken.SpokenText().toStdString();
  }
  [[nodiscard]] std::vector<std::string> History() const {
    const auto& list = test::Find<QListWidget>(*window, "lstHistory");
    std::vector<std::string> lines;
    for (int row = 0; row < list.count(); ++row) {
      lines.push_back(list.item(row)->text().toStdString());
    }
    return lines;
  }
};

const std::string kRed = "#c0392b";
const std::string kGreen = "#278045";
const std::string kGrey = "#6f6f6f";

TEST_F(LiveBoard, TheNumberIsTheLargestTextOfTheWindow) {
  Contact();
  const auto& number = test::Find<QWidget>(*window, "lblBoard");
  EXPECT_EQ(Said("lblBoard"), "1");
  for (const QLabel* label : window->findChildren<QLabel*>()) {
    EXPECT_GT(number.height(), 2 * label->fontMetrics().ascent()) << label->text().toStdString();
  }
  Click("cmdNext");
  EXPECT_EQ(Said("lblBoard"), "2");
}

TEST_F(LiveBoard, TheCopyStandsWithTheNumber) {
  desk.Store.Set(kDealCopy, "1");
  memory.NumberOfCopies = 3;
  Contact();
  Click("NextCopy");
  EXPECT_EQ(Said("lblBoard"), "1, Copy: 2/3");
}

TEST_F(LiveBoard, ACountIsRedUntilItIsOnTargetAndAWordTellsThatThisIsNoAlarm) {
  Contact();
  EXPECT_EQ(Ground("lblCnt_1"), kGrey);
  EXPECT_EQ(Text("lblCnt_1_word"), "waiting");
  MeanwhileAt(kMidBoard, [this] {
    EXPECT_EQ(Ground("lblCnt_1"), kRed);
    EXPECT_EQ(Text("lblCnt_1_word"), "filling");
  });
  Click("cmdDeal");
  EXPECT_EQ(Ground("lblCnt_1"), kGreen);
  EXPECT_EQ(Text("lblCnt_1_word"), "full");
}

TEST_F(LiveBoard, APocketOfABoardThatStoppedIsShort) {
  Contact();
  MeanwhileAt(kMidBoard, [this] { simulated.CauseFault(25); });
  desk.When("Error_disp", [this](QWidget& error) {
    EXPECT_EQ(Ground("lblCnt_1"), kRed);
    EXPECT_EQ(Text("lblCnt_1_word"), "stopped short");
    test::Click(error, "Continue_button");
  });
  Click("cmdDeal");
  EXPECT_EQ(Text("lblCnt_1_word"), "full") << "it went on";
}

TEST_F(LiveBoard, AtTheBeginningOfTheNextBoardTheCountsAreClearedAndRed) {
  Contact();
  Click("cmdDeal");
  MeanwhileAt(1, [this] {
    EXPECT_EQ(Counts(), "   ");
    EXPECT_EQ(Ground("lblCnt_4"), kRed);
    EXPECT_EQ(Text("lblCnt_4_word"), "waiting");
  });
  Click("Deal_next");
}

TEST_F(LiveBoard, CardsLieFaceDownWhileTheyFallAndAreShownWhenTheMachineHasStopped) {
  Contact();
  EXPECT_THAT(Said("Picture1"), HasSubstr("North: "));
  MeanwhileAt(kMidBoard, [this] {
    EXPECT_EQ(Said("Picture1"),
              "Board: 1, Vul: None, Dealer: North. The cards are under way, face down.");
    simulated.CauseFault(25);
  });
  desk.When("Error_disp", [this](QWidget& error) {
    EXPECT_THAT(Said("Picture1"), HasSubstr("not dealt: "));
    test::Click(error, "Cancel_button");
  });
  Click("cmdDeal");
  EXPECT_THAT(Said("Picture1"), HasSubstr("not dealt: "));
}

TEST_F(LiveBoard, BehindALostLinkNoCardIsShownAsDealt) {
  Contact();
  MeanwhileAt(kMidBoard, [this] { simulated.PowerOff(); });
  desk.When("MessageBox", [this](QWidget& box) {
    EXPECT_EQ(Text("txtStatus"), "Down");
    EXPECT_EQ(Said("Picture1"),
              "Board: 1, Vul: None, Dealer: North. The cards are under way, face down.");
    box.close();
  });
  Click("cmdDeal");
  EXPECT_TRUE(run.Closed());
}

TEST_F(LiveBoard, TheUnitOfTheTimeComesWithTheTime) {
  Contact();
  EXPECT_EQ(Text("txtDealTime") + Text("lblSeconds"), "");
  MeanwhileAt(kMidBoard, [this] { EXPECT_EQ(Text("lblSeconds"), "s"); });
  Click("cmdDeal");
  EXPECT_EQ(Text("lblSeconds"), "s");
}

TEST_F(LiveBoard, TheStateFillsItsBoxAndIsSmallerThanTheNumber) {
  Contact();
  const auto letters = [this] {
    return test::Find<QLabel>(*window, "txtStatus").fontMetrics().height();
  };
  const int before = letters();
  EXPECT_GT(before, 2 * window->fontMetrics().height());
  window->resize(window->width() + 200, window->height() + 400);
  desk.Loop.Pump();
  EXPECT_GE(letters(), before);
  EXPECT_LT(letters(), test::Find<QWidget>(*window, "lblBoard").height());
  window->resize(window->minimumSize());
  desk.Loop.Pump();
  const auto& status = test::Find<QLabel>(*window, "txtStatus");
  EXPECT_GE(status.width(), status.fontMetrics().horizontalAdvance("Illegal (0)"));
}

TEST_F(LiveBoard, HiddenBoardsShowNoFaceDownCardEither) {
  desk.Store.Set(kDealShow, "0");
  Contact();
  const auto backs = [this] {
    const QImage image = test::Find<QWidget>(*window, "Picture1").grab().toImage();
    int pixels = 0;
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x) pixels += image.pixelColor(x, y) == kBlueGround;
    }
    return pixels;
  };
  MeanwhileAt(kMidBoard, [&] {
    EXPECT_EQ(backs(), 0);
    Click("Disp_boards");
    EXPECT_EQ(backs(), 0) << "it cannot be pressed";
  });
  Click("cmdDeal");
}

TEST(BoardPicture, AFallingCardPaintsItsHandAloneAndBacksInItsPlace) {
  BoardPicture picture(nullptr);
  picture.resize(560, 350);
  BoardDisplay display;
  display.HandsShown = true;
  picture.Show(display);
  picture.show();
  QCoreApplication::processEvents();
  const auto backs = [&picture](const QRect& place) {
    const QImage image = picture.grab(place).toImage();
    int pixels = 0;
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x) pixels += image.pixelColor(x, y) == kBlueGround;
    }
    return pixels;
  };
  const QRect north(205, 16, 340, 80);
  const QRect south(205, 254, 340, 80);
  picture.ShowFallen(std::array{0, 0, 0, 0, 0});
  EXPECT_EQ(backs(picture.rect()), 0);
  QCoreApplication::processEvents();

  class Watch final : public QObject {
   public:
    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
      if (event->type() == QEvent::Paint) Painted += static_cast<QPaintEvent*>(event)->region();
      return false;
    }
    QRegion Painted;
  } watch;
  picture.installEventFilter(&watch);
  picture.ShowFallen(std::array{0, 2, 0, 0, 0});
  QCoreApplication::processEvents();
  EXPECT_TRUE(north.adjusted(-1, -1, 1, 1).contains(watch.Painted.boundingRect()));
  EXPECT_FALSE(watch.Painted.isEmpty());
  watch.Painted = {};
  picture.ShowFallen(std::array{0, 2, 0, 0, 0});
  QCoreApplication::processEvents();
  EXPECT_TRUE(watch.Painted.isEmpty()) << "nothing has fallen since";

  const int two = backs(north);
  EXPECT_GT(two, 34 * 50) << "more than one whole card, less than two";
  EXPECT_LT(two, 2 * 34 * 50);
  EXPECT_EQ(backs(south), 0);
  picture.ShowFallen(std::nullopt);
  EXPECT_EQ(backs(picture.rect()), 0);
}

/// What a picture of this part of the sheet takes to draw, in bytes.
uint DrawnFor(BoardPicture& picture, const QRect& part) {
  QPicture drawn;
  picture.render(&drawn, {}, QRegion(part), {});
  return drawn.size();
}

TEST(BoardPicture, APartIsPaintedWithoutTheRestOfTheSheet) {
  BoardPicture picture(nullptr);
  picture.resize(560, 350);
  BoardDisplay display;
  display.HandsShown = true;
  display.Board = " Board: 1";
  picture.Show(display);
  picture.ShowFallen(std::array{0, 13, 13, 13, 13});
  const uint all = DrawnFor(picture, picture.rect());
  const uint north = DrawnFor(picture, {210, 20, 200, 60});
  const uint table = DrawnFor(picture, {10, 242, 150, 90});
  EXPECT_LT(north, all / 2);
  EXPECT_LT(table, all / 2);
  EXPECT_GT(north, table) << "13 cards";
}

/// Pixels that are another colour, and not only another rounding at an edge.
int Differences(const QImage& one, const QImage& other) {
  constexpr int kRounding = 64;
  int pixels = 0;
  for (int y = 0; y < one.height(); ++y) {
    for (int x = 0; x < one.width(); ++x) {
      const int grey = qGray(one.pixel(x, y)) - qGray(other.pixel(x, y));
      pixels += grey > kRounding || grey < -kRounding ? 1 : 0;
    }
  }
  return pixels;
}

TEST(BoardPicture, WhatIsPaintedInPartsIsTheWhole) {
  BoardPicture picture(nullptr);
  picture.resize(700, 438);
  BoardDisplay display;
  display.HandsShown = display.Analyzed = true;
  display.Board = " Board: 128";
  display.Copy = " Copy: 10/12";
  display.Vul = "Vul: None";
  display.Dealer = "Dealer: North";
  display.Tricks.fill(13);
  for (auto& hand : display.Hands) hand.fill(BoardDisplay::Suit(4, {"Kn"}));
  picture.Show(display);
  const QImage whole = picture.grab().toImage();
  constexpr int kTile = 10;
  for (int y = 0; y < picture.height(); y += kTile) {
    for (int x = 0; x < picture.width(); x += kTile) {
      const QRect tile = QRect(x, y, kTile, kTile) & picture.rect();
      EXPECT_EQ(Differences(picture.grab(tile).toImage(), whole.copy(tile)), 0) << x << ", " << y;
    }
  }
}

TEST_F(LiveBoard, ALongLineOfTheHistoryIsWrappedAndNoBarCoversIt) {
  Contact();
  MeanwhileAt(kMidBoard, [this] { simulated.CauseFault(61); });
  desk.When("Error_disp", [](QWidget& error) { test::Click(error, "Cancel2"); });
  Click("cmdDeal");
  auto& list = test::Find<QListWidget>(*window, "lstHistory");
  EXPECT_EQ(list.item(0)->text(),
            "Board 1   stopped: Card does not belong to selected National Settings");
  list.setFixedWidth(250);
  desk.Loop.Pump();
  EXPECT_EQ(list.horizontalScrollBar()->maximum(), 0);
  EXPECT_GT(list.visualItemRect(list.item(0)).height(), 2 * list.fontMetrics().ascent());
}

TEST_F(LiveBoard, TheHistoryTellsWhatWasDoneAndWhatIsLeft) {
  Contact();
  EXPECT_EQ(Text("lblLeft"), "3 boards left");
  Click("cmdDeal");
  EXPECT_EQ(Text("lblLeft"), "2 boards left, less than a minute");
  MeanwhileAt(kMidBoard, [this] {
    EXPECT_EQ(Text("lblLeft"), "2 boards left, less than a minute") << "with the one under way";
    simulated.CauseFault(9);
  });
  desk.When("Error_disp", [](QWidget& error) { test::Click(error, "Cancel2"); });
  Click("Deal_next");
  const auto history = History();
  ASSERT_EQ(history.size(), 2U);
  EXPECT_EQ(history[0], "Board 2   stopped: Card Jam Error");
  EXPECT_THAT(history[1], ::testing::MatchesRegex("Board 1   1[0-9]\\.[0-9] s   dealt"));
  EXPECT_EQ(Text("lblLeft"), "2 boards left, less than a minute");
  Click("cmdLast");
  EXPECT_EQ(Text("lblLeft"), "1 board left, less than a minute");
  desk.AnswerBox(QMessageBox::No);
  Click("cmdDeal");
  EXPECT_EQ(Text("lblLeft"), "No board left");
}

TEST_F(LiveBoard, TheHistoryTellsOfMissingCards) {
  Contact();
  MeanwhileAt(kMidBoard, [this] {
    simulated.PowerOff();
    simulated.PowerOn();
  });
  desk.AnswerBox(QMessageBox::Ok);
  Click("cmdDeal");
  EXPECT_EQ(History().front(), "Board 1   stopped: cards are missing");
  EXPECT_EQ(Text("lblCnt_1_word"), "stopped short");
}

TEST_F(LiveBoard, TheHistoryTellsOfABoardThatWasNotStarted) {
  Contact();
  Click("Check_board");
  simulated.InsertBoard(2);
  desk.When("Error_disp", [](QWidget& error) { test::Click(error, "Cancel_button"); });
  Click("cmdDeal");
  EXPECT_EQ(History().front(), "Board 1   not started");
  EXPECT_EQ(Text("lblLeft"), "3 boards left");
}

TEST_F(LiveBoard, CopiesCountAndAreNamed) {
  desk.Store.Set(kDealCopy, "1");
  memory.NumberOfCopies = 2;
  Contact();
  EXPECT_EQ(Text("lblLeft"), "6 boards left");
  Click("cmdDeal");
  Click("Deal_next");
  EXPECT_THAT(History().front(), ::testing::StartsWith("Board 1, copy 2   "));
  EXPECT_THAT(Text("lblLeft"), ::testing::StartsWith("4 boards left, "));
}

}  // namespace
}  // namespace morvane::machine
