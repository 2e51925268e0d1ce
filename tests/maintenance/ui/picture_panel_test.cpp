#include <QApplication>
#include <QClipboard>
#include <QFileDialog>
#include <QProgressBar>
#include <QScrollBar>
#include <QWheelEvent>

#include "maintenance/ui/picture_desk.h"

// The camera's picture in the console, and the recognition bench around it.

namespace morvane::maintenance {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

constexpr QSize kWide{1400, 760};

class PicturePanelTest : public PictureDesk {
 protected:
  using PictureDesk::PictureDesk;

  void Fetch() {
    Click("Capture");
    Click("Showb");
  }
  std::string ReadOut() { return Text("Cur_x") + "," + Text("Cur_y") + "," + Text("Brightness"); }
};

TEST_F(PicturePanelTest, ACaptureIsFetchedAndShownToThePixel) {
  OpenPicture();
  Click("Capture");
  EXPECT_EQ(Text("Cap_time"), "258");
  EXPECT_EQ(FocusName(), "Showb");
  EXPECT_EQ(Shown(0, 0), 0xFFFFFFU) << "a capture fetches nothing";
  Press(Qt::Key_Space);
  EXPECT_EQ(Shown(0, 0), 0U);
  EXPECT_EQ(Shown(127, 0), 0xFEFEFEU);  // 2 x 127
  EXPECT_EQ(Shown(0, 191), 0x3D3D3DU);  // 3 x 191 - 2 x 256 = 61
  EXPECT_EQ(Shown(10, 20), 0x505050U);  // 20 + 60 = 80
  EXPECT_EQ(Shown(0, 192), 0xFF0000U) << "the red row stays below the last line";
  EXPECT_EQ(Shown(127, 192), 0xFF0000U);
  EXPECT_EQ(Shown(128, 192), 0xFFFFFFU);
}

TEST_F(PicturePanelTest, WhatIsPaintedIsThePictureSquareBySquare) {
  OpenPicture();
  Fetch();
  MoveTo({0, 0});
  const QImage seen = View().viewport()->grab().toImage();
  for (const auto& [x, y] : {std::pair(10, 20), {0, 0}, {127, 40}}) {
    const QPoint middle = PlaceOf(x, y);
    for (const QPoint& off : {QPoint(-1, -1), QPoint(0, 0)}) {
      const QPoint device = (middle + off) * qRound(seen.devicePixelRatio());
      EXPECT_EQ(seen.pixel(device) & 0xFFFFFFU, Shown(x, y)) << x << " " << y;
    }
  }
}

TEST_F(PicturePanelTest, ACaptureThatIsRefusedMovesNoFocus) {
  OpenPicture();
  machine.PollLock = true;
  Focus("Capture");
  Press(Qt::Key_Space);
  EXPECT_EQ(FocusName(), "Capture");
  EXPECT_THAT(codes, IsEmpty());
  machine.PollLock = false;
}

TEST_F(PicturePanelTest, DuringEachLineTheButtonsAreOffAndTheBarTellsIt) {
  OpenPicture();
  Click("Capture");
  int lines = 0;
  OnLine = [&](int line) {
    SCOPED_TRACE(line);
    EXPECT_EQ(line, lines++);
    for (const char* name : {"Capture", "Reco", "Showb", "AutoSetup_command", "Save_picture"}) {
      EXPECT_FALSE(Enabled(name)) << name;
    }
    EXPECT_TRUE(Visible("Fetched"));
    EXPECT_EQ(test::Find<QProgressBar>(*window, "Fetched").value(), line);
  };
  Click("Showb");
  EXPECT_EQ(lines, 192);
  EXPECT_FALSE(Visible("Fetched"));
  for (const char* name : {"Capture", "Reco", "Showb", "AutoSetup_command", "Save_picture"}) {
    EXPECT_TRUE(Enabled(name)) << name;
  }
  EXPECT_EQ(FocusName(), "Showb") << "where it was";
}

TEST_F(PicturePanelTest, EscapeDuringALineEndsTheFetchAndTheWindow) {
  OpenPicture();
  Click("Capture");
  OnLine = [this](int line) {
    if (line == 5) desk.Loop.After(0, [this] { Press(Qt::Key_Escape); });
  };
  Click("Showb");
  EXPECT_LT(codes.size(), 20U);
  EXPECT_TRUE(console.Closed());
}

TEST_F(PicturePanelTest, ALostLinkInTheMiddleLeavesHalfAPictureAndCloses) {
  OpenPicture();
  Click("Capture");
  OnLine = [this](int line) {
    if (line != 100) return;
    camera.Answer = nullptr;
    simulated.PowerOff();
  };
  // The line in flight still has its answer.
  desk.AnswerBox(QMessageBox::Ok);
  Click("Showb");
  EXPECT_EQ(desk.Boxes.at(0).Title, "Communication Error");
  EXPECT_TRUE(console.Closed());
}

/// A line's pixels, the red row, and what the row before has lost: no more is painted.
TEST_F(PicturePanelTest, ALinePaintsNoMoreThanItself) {
  struct Painted final : QObject {
    bool eventFilter(QObject* /*viewport*/, QEvent* event) override {
      if (event->type() == QEvent::Paint) {
        Highest =
            std::max(Highest, static_cast<QPaintEvent*>(event)->region().boundingRect().height());
        ++Times;
      }
      return false;
    }
    int Highest = 0;
    int Times = 0;
  } painted;
  OpenPicture();
  Click("Capture");
  OnLine = [&](int line) {
    if (line == 2) View().viewport()->installEventFilter(&painted);
    if (line == 190) View().viewport()->removeEventFilter(&painted);
  };
  Click("Showb");
  EXPECT_GT(painted.Times, 50);
  EXPECT_LE(painted.Highest, 4 * View().Zoom());
}

TEST_F(PicturePanelTest, ARecognitionShowsWhatTheMachineHasMeasured) {
  OpenPicture();
  Click("Capture");
  Click("Reco");
  EXPECT_EQ(Text("Symbol") + Text("Suit") + Text("Threshold"), "10S46,47");
  EXPECT_EQ(Text("Symbol_size_x"), "9");  // 20 - 10 - 1
  EXPECT_EQ(Text("Symbol_size_y"), "19");
  EXPECT_EQ(Text("Suit_size_x"), "19");
  EXPECT_EQ(Text("Suit_size_y"), "29");
  EXPECT_EQ(Text("Reco_param1") + "," + Text("Reco_param2"), "5,6");
  EXPECT_EQ(FocusName(), "Reco");
  Click("Showb");
  EXPECT_EQ(Shown(0, 0), 0xFFFFFFU);
  EXPECT_EQ(Shown(1, 0), 0U) << "labels are black on white";
}

TEST_F(PicturePanelTest, AnotherCardThanExpectedStopsTheRecognitionUntilACapture) {
  OpenPicture();
  TypeInto("HoldS", "10");
  TypeInto("HoldC", "S");
  Click("Reco");
  EXPECT_TRUE(Enabled("Reco"));
  TypeInto("HoldC", "s");
  Click("Reco");
  EXPECT_FALSE(Enabled("Reco"));
  EXPECT_TRUE(Enabled("Showb"));
  EXPECT_EQ(FocusName(), "Capture") << "what is to be done next";
  Click("Capture");
  EXPECT_TRUE(Enabled("Reco"));
}

TEST_F(PicturePanelTest, FramesAndStartPointAreDrawnOnTop) {
  OpenPicture();
  Fetch();
  Click("Reco");
  Click("Frame_draw");
  EXPECT_EQ(Shown(10, 30), 0xFF0000U);
  EXPECT_EQ(Shown(31, 90), 0xFF0000U);
  EXPECT_EQ(Shown(15, 40), 0x969696U) << "2 x 15 + 3 x 40 = 150 within";
  Page(kParameterPage);
  TypeInto("start_x", "20");
  TypeInto("start_y", "60");
  Page(kPicturePage);
  Click("Start_draw");
  EXPECT_EQ(Shown(50, 100), 0xFFFF00U);
  EXPECT_EQ(Shown(0, 20), 0xFFFF00U) << "its left edge lies beyond the picture's";
  EXPECT_NE(Shown(0, 100), 0xFFFF00U);
  EXPECT_EQ(Shown(15, 60), 0x0000FFU);
  EXPECT_EQ(Shown(17, 60), 0xFFFF00U);
}

TEST_F(PicturePanelTest, TheMouseReadsThePixelUnderIt) {
  OpenPicture();
  Fetch();
  MoveTo(PlaceOf(10, 20));
  EXPECT_EQ(ReadOut(), "10,20,80");
  MoveTo(PlaceOf(10, 192));
  EXPECT_EQ(ReadOut(), "10,192,255") << "the red row reads as red";
  MoveTo(PlaceOf(127, 0));
  EXPECT_EQ(ReadOut(), "127,0,254");
  MoveTo({-30, -30});
  EXPECT_EQ(ReadOut(), ",,");
}

TEST_F(PicturePanelTest, ReadOutsFollowWhatIsPainted) {
  OpenPicture();
  MoveTo(PlaceOf(10, 20));
  EXPECT_EQ(ReadOut(), "10,20,255");
  Click("Capture");
  View().setFocus();
  Press(Qt::Key_Right);  // in the middle: 64, 96
  EXPECT_EQ(ReadOut(), "64,96,255");
  PressLetter(Qt::Key_X, "Showb");
  EXPECT_EQ(ReadOut(), "64,96,160");  // 128 + 288 - 256
}

TEST_F(PicturePanelTest, ArrowKeysMoveACross) {
  OpenPicture();
  Fetch();
  View().setFocus();
  Press(Qt::Key_Right);
  Press(Qt::Key_Right);
  Press(Qt::Key_Down, Qt::ShiftModifier);
  EXPECT_EQ(ReadOut(), "65,106,192");  // 130 + 318 - 256
  EXPECT_EQ(SpokenBy("Picture1"), "x 65, y 106, brightness 192");
  for (int i = 0; i < 12; ++i) Press(Qt::Key_Left, Qt::ShiftModifier);
  for (int i = 0; i < 12; ++i) Press(Qt::Key_Up, Qt::ShiftModifier);
  EXPECT_EQ(ReadOut(), "0,0,0") << "it stays on the picture";
}

TEST_F(PicturePanelTest, WhenTheMouseHasLeftThePictureTheCrossReadsAgain) {
  OpenPicture();
  Fetch();
  View().setFocus();
  Press(Qt::Key_Right);  // in the middle
  MoveTo(PlaceOf(10, 20));
  EXPECT_EQ(ReadOut(), "10,20,80");
  MoveTo({-30, -30});
  EXPECT_EQ(ReadOut(), "64,96,160");
}

TEST_F(PicturePanelTest, APictureWithTheKeyboardShowsItBeforeAnyArrow) {
  OpenPicture();
  Focus("Copy_picture");
  const auto frame = [this] { return View().grab().toImage().pixelColor(0, 40); };
  EXPECT_NE(frame(), window->palette().color(QPalette::Highlight));
  View().setFocus();
  EXPECT_EQ(frame(), window->palette().color(QPalette::Highlight));
}

TEST_F(PicturePanelTest, TheWheelZoomsUnderTheMouse) {
  OpenPicture();
  Fetch();
  for (const int notches : {1, 3, 9, -2}) {
    const QPoint place = PlaceOf(60, 70);
    MoveTo(place);
    Wheel(place, notches);
    EXPECT_EQ(ReadOut(), "60,70,74") << notches;  // 120 + 210 - 256
  }
  EXPECT_EQ(View().Zoom(), 6) << "8 at most";
  EXPECT_EQ(Text("Zoom"), "6x");
  Wheel(PlaceOf(60, 70), -20);
  EXPECT_EQ(View().Zoom(), 1);
}

TEST_F(PicturePanelTest, KeysZoom) {
  OpenPicture();
  View().setFocus();
  Press(Qt::Key_Plus, Qt::ControlModifier);
  Press(Qt::Key_Equal, Qt::ControlModifier);
  EXPECT_EQ(View().Zoom(), 4);
  Press(Qt::Key_Minus, Qt::ControlModifier);
  EXPECT_EQ(View().Zoom(), 3);
  Press(Qt::Key_0, Qt::ControlModifier);
  EXPECT_EQ(View().Zoom(), 2);
}

TEST_F(PicturePanelTest, ALargePictureIsDraggedAndThatIsNoClick) {
  Service(1);
  OpenPicture();
  View().ZoomTo(8);
  desk.Loop.Pump();
  auto& bar = *View().verticalScrollBar();
  bar.setValue(400);
  const QPoint from = View().viewport()->mapTo(window.get(), QPoint(60, 60));
  QTest::mousePress(window->windowHandle(), Qt::LeftButton, {}, from);
  QTest::mouseMove(window->windowHandle(), from + QPoint(0, 20));
  QTest::mouseMove(window->windowHandle(), from + QPoint(0, 40));
  QTest::mouseRelease(window->windowHandle(), Qt::LeftButton, {}, from + QPoint(0, 40));
  EXPECT_EQ(bar.value(), 360);
  EXPECT_EQ(test::TopWindow("Magnify1"), nullptr);
}

TEST_F(PicturePanelTest, WhatIsSavedAndCopiedIsWhatIsPainted) {
  OpenPicture();
  Fetch();
  Click("Start_draw");
  desk.When("cdSave", [](QWidget& dialog) {
    test::Find<QLineEdit>(dialog, "fileNameEdit").setFocus();
    test::Find<QLineEdit>(dialog, "fileNameEdit").selectAll();
    test::Type(dialog, "card");
    test::Press(dialog, Qt::Key_Return);
  });
  QDir::setCurrent(QString::fromStdString(desk.Folder.Path()));
  Click("Save_picture");
  const QImage saved(QString::fromStdString(desk.Folder / "card.png"));
  const QImage picture = View().Image().copy(0, 0, 128, 192);
  EXPECT_EQ(saved.convertToFormat(QImage::Format_RGB32), picture);
  QApplication::clipboard()->clear();
  View().setFocus();
  Press(Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QApplication::clipboard()->image().convertToFormat(QImage::Format_RGB32), picture);
  QApplication::clipboard()->clear();
  Click("Copy_picture");
  EXPECT_EQ(QApplication::clipboard()->image().size(), QSize(128, 192));
}

TEST_F(PicturePanelTest, ALinkThatIsLostWhileAFileIsAskedForEndsTheServiceBehindIt) {
  OpenPicture();
  Fetch();
  desk.When("cdSave", [this](QWidget& dialog) {
    desk.AnswerBox(QMessageBox::Ok);
    simulated.PowerOff();
    desk.Loop.WaitMs(3000);
    EXPECT_TRUE(console.Closed());
    dialog.close();
  });
  Click("Save_picture");
  EXPECT_THAT(desk.Boxes, SizeIs(1));
  EXPECT_FALSE(window->isVisible());
}

TEST_F(PicturePanelTest, TheEndOfTheProgramEndsAQuestionForAFile) {
  OpenPicture();
  Fetch();
  desk.When("cdSave", [this](QWidget&) { desk.Loop.Quit(); });
  Click("Save_picture");
  EXPECT_EQ(test::TopWindow("cdSave"), nullptr);
  EXPECT_THAT(desk.Boxes, IsEmpty());
}

TEST_F(PicturePanelTest, TheTabKeyWalksThroughThePageAsTheEyeDoes) {
  OpenPicture();
  Focus("Capture");
  std::vector<std::string> names;
  for (int i = 0; i < 11; ++i) {
    names.push_back(FocusName());
    Press(Qt::Key_Tab);
  }
  EXPECT_THAT(names, ElementsAre("Capture", "Reco", "Showb", "Frame_draw", "Start_draw",
                                 "AutoSetup_command", "Picture1", "Save_picture", "Copy_picture",
                                 "HoldS", "HoldC"));
}

TEST_F(PicturePanelTest, TheFocusIsShownToTechnicians) {
  Service(1);
  OpenPicture();
  Click("Capture");
  EXPECT_EQ(Text("Focus"), "77");
}

TEST_F(PicturePanelTest, InAWideWindowItStandsBesideThePagesAndKeepsTheFocus) {
  OpenPicture();
  Focus("HoldS");
  EXPECT_EQ(test::Find<QTabWidget>(*window, "tabs").count(), 4);
  window->resize(kWide);
  desk.Loop.Pump();
  EXPECT_EQ(test::Find<QTabWidget>(*window, "tabs").count(), 3);
  EXPECT_EQ(FocusName(), "HoldS");
  for (int page = 0; page < 3; ++page) {
    Page(page);
    EXPECT_TRUE(View().isVisible()) << page;
  }
  Page(0);
  EXPECT_TRUE(Visible("start_x")) << "beside the picture";
  window->resize(800, 700);
  desk.Loop.Pump();
  EXPECT_EQ(test::Find<QTabWidget>(*window, "tabs").count(), 4);
  EXPECT_TRUE(View().isVisible()) << "the page with the focus is in front";
  EXPECT_EQ(FocusName(), "HoldS");
}

/// Of what can be seen at once no two have the same.
TEST_F(PicturePanelTest, NoLetterStandsForTwoThings) {
  Service(2);
  OpenPicture();
  for (const QSize& size : {QSize(800, 700), kWide}) {
    window->resize(size);
    desk.Loop.Pump();
    auto& tabs = test::Find<QTabWidget>(*window, "tabs");
    for (int page = 0; page < tabs.count(); ++page) {
      Page(page);
      std::map<QString, std::string> letters;
      const auto note = [&](const QString& caption, const QString& name) {
        const QString letter = QKeySequence::mnemonic(caption).toString();
        if (letter.isEmpty()) return;
        EXPECT_EQ(letters.count(letter), 0U)
            << letter.toStdString() << ": " << letters[letter] << " and " << name.toStdString();
        letters[letter] = name.toStdString();
      };
      for (int i = 0; i < tabs.count(); ++i) note(tabs.tabText(i), tabs.tabText(i));
      for (auto* button : window->findChildren<QAbstractButton*>()) {
        if (button->isVisible()) note(button->text(), button->objectName());
      }
      EXPECT_GT(letters.size(), 14U);
    }
  }
}

}  // namespace
}  // namespace morvane::maintenance
