#include "maintenance/ui/magnify_window.h"

#include <cmath>

#include "maintenance/ui/picture_desk.h"

namespace morvane::maintenance {
namespace {

class Magnify : public PictureDesk {
 protected:
  using PictureDesk::PictureDesk;

  /// With the grey picture fetched.
  void OpenWithPicture() {
    Service(1);
    OpenPicture();
    Click("Capture");
    Click("Showb");
  }
  /// Clicks on the picture; `act` is done with the window that comes up.
  void Open(std::function<void(QWidget&)> act) {
    desk.When("Magnify1", std::move(act));
    ClickAt(PlaceOf(20, 20));
  }
  static QRgb Shown(QWidget& magnify, int x, int y) {
    return test::Find<PixelView>(magnify, "Picture2").Image().pixel(x, y) & 0xFFFFFFU;
  }
  static void MoveOver(QWidget& magnify, int x, int y) {
    const auto& view = test::Find<PixelView>(magnify, "Picture2");
    const QPoint spare((view.viewport()->width() - 512) / 2, -view.verticalScrollBar()->value());
    ASSERT_GE(spare.x(), 0);
    QTest::mouseMove(magnify.windowHandle(),
                     view.viewport()->mapTo(&magnify, spare + QPoint(x, y)));
  }
  /// Alt and the letter of the button, which stays down for a moment.
  static void PressLetter(QWidget& magnify, Qt::Key letter, const char* name) {
    const auto& button = test::Find<QAbstractButton>(magnify, name);
    magnify.activateWindow();
    test::Press(magnify, letter, Qt::AltModifier);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !button.isDown(); }));
  }
  static std::string ReadOut(const QWidget& magnify) {
    return test::TextOf(magnify, "Cursor_x") + "," + test::TextOf(magnify, "Cursor_y") + "," +
           test::TextOf(magnify, "Bright");
  }
};

TEST_F(Magnify, AClickOpensItWithThePictureAndEscapeClosesIt) {
  OpenWithPicture();
  bool open = false;
  Open([&](QWidget& magnify) {
    open = true;
    EXPECT_EQ(Shown(magnify, 4 * 10, 4 * 20), 0x505050U);
    EXPECT_EQ(Shown(magnify, 4 * 10 + 3, 4 * 20 + 3), 0x505050U);
    EXPECT_EQ(Shown(magnify, 4 * 11, 4 * 20), 0x525252U);
    test::Press(magnify, Qt::Key_Escape);
  });
  EXPECT_TRUE(open);
  EXPECT_EQ(test::TopWindow("Magnify1"), nullptr);
  EXPECT_FALSE(console.Closed());
}

TEST_F(Magnify, TheSpaceBarOpensItToo) {
  OpenWithPicture();
  View().setFocus();
  desk.When("Magnify1", [](QWidget& magnify) { PressLetter(magnify, Qt::Key_C, "cmdClose"); });
  Press(Qt::Key_Space);
  EXPECT_FALSE(machine.PollLock);
}

TEST_F(Magnify, OnlyTechniciansHaveIt) {
  OpenPicture();
  ClickAt(PlaceOf(20, 20));
  View().setFocus();
  Press(Qt::Key_Space);
  EXPECT_EQ(test::TopWindow("Magnify1"), nullptr);
}

TEST_F(Magnify, WhileAnotherHasTheLinkAClickDoesNothing) {
  OpenWithPicture();
  machine.PollLock = true;
  ClickAt(PlaceOf(20, 20));
  EXPECT_EQ(test::TopWindow("Magnify1"), nullptr);
  machine.PollLock = false;
}

TEST_F(Magnify, PollsStandStillWhileItIsOpen) {
  OpenWithPicture();
  Open([&](QWidget& magnify) {
    const int answers = console.Console().StatusAnswers();
    desk.Loop.WaitMs(1000);
    EXPECT_EQ(console.Console().StatusAnswers(), answers);
    magnify.close();
  });
  const int answers = console.Console().StatusAnswers();
  Polls();
  EXPECT_GT(console.Console().StatusAnswers(), answers);
}

TEST_F(Magnify, RasterAndRefreshByTheirLetters) {
  OpenWithPicture();
  Open([&](QWidget& magnify) {
    PressLetter(magnify, Qt::Key_A, "Raster");
    EXPECT_EQ(Shown(magnify, 4, 1), 0xC0C0C0U);
    EXPECT_EQ(Shown(magnify, 5, 1), 0x020202U);
    PressLetter(magnify, Qt::Key_R, "Refresh");
    EXPECT_EQ(Shown(magnify, 4, 1), 0x020202U);
    magnify.close();
  });
}

TEST_F(Magnify, TheMouseReadsWhatIsPainted) {
  OpenWithPicture();
  Open([&](QWidget& magnify) {
    MoveOver(magnify, 40, 80);
    EXPECT_EQ(ReadOut(magnify), "10,20,80");
    test::Click(magnify, "Raster");
    MoveOver(magnify, 41, 80);
    EXPECT_EQ(ReadOut(magnify), "10,20,192");
    MoveOver(magnify, -9, 80);
    magnify.close();
  });
}

TEST_F(Magnify, AfterTheWheelItReadsWhatIsUnderTheMouse) {
  OpenWithPicture();
  Open([&](QWidget& magnify) {
    magnify.resize(600, 400);
    desk.Loop.Pump();
    auto& view = test::Find<PixelView>(magnify, "Picture2");
    MoveOver(magnify, 40, 80);
    EXPECT_EQ(ReadOut(magnify), "10,20,80");
    const QPoint place(40 + (view.viewport()->width() - 512) / 2, 80);
    QWheelEvent event(place, view.viewport()->mapToGlobal(place), {}, {0, -120}, Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(view.viewport(), &event);
    const int scrolled = view.verticalScrollBar()->value();
    EXPECT_GT(scrolled, 20) << "some lines of the screen";
    EXPECT_EQ(test::TextOf(magnify, "Cursor_x"), "10");
    EXPECT_EQ(test::TextOf(magnify, "Cursor_y"),
              std::to_string(static_cast<int>(std::nearbyint((80 + scrolled) / 4.0))));
    magnify.close();
  });
}

TEST_F(Magnify, AnEscapeThatIsHeldDownClosesNoMoreThanIt) {
  OpenWithPicture();
  Open([&](QWidget& magnify) { test::Press(magnify, Qt::Key_Escape); });
  QKeyEvent held(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier, "", true);
  QApplication::sendEvent(&View(), &held);
  EXPECT_FALSE(console.Closed());
  Press(Qt::Key_Escape);
  EXPECT_FALSE(console.Closed()) << "told as a new key, but as fast as a repeat";
  desk.Loop.WaitMs(300);
  Press(Qt::Key_Escape);
  EXPECT_TRUE(console.Closed());
}

// Not blue, but the colour of the second test: 0, 192, 255.
TEST_F(Magnify, TheThirdClassOfALabelPicture) {
  Service(1);
  OpenPicture();
  pictures->ImageMode = PictureStore::Kind::kLabels;
  pictures->LabelImage.Set(2, 3, 3);
  Open([&](QWidget& magnify) {
    EXPECT_EQ(Shown(magnify, 8, 12), 0x00C0FFU);
    EXPECT_EQ(Shown(magnify, 12, 12), 0xFFFFFFU);
    magnify.close();
  });
}

TEST_F(Magnify, TheEndOfTheProgramClosesIt) {
  OpenWithPicture();
  Open([this](QWidget&) { desk.Loop.Quit(); });
  EXPECT_EQ(test::TopWindow("Magnify1"), nullptr);
}

}  // namespace
}  // namespace morvane::maintenance
