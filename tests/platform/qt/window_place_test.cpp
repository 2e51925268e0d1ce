#include "platform/qt/window_place.h"

#include <gtest/gtest.h>

namespace morvane {
namespace {

constexpr QRect kScreen{0, 0, 1000, 800};

TEST(PlaceOnScreen, AWindowThatIsInNobodysWayStandsWhereItWants) {
  EXPECT_EQ(PlaceOnScreen({100, 50, 300, 200}, kScreen, {}), QRect(100, 50, 300, 200));
  EXPECT_EQ(PlaceOnScreen({100, 50, 300, 200}, kScreen, {{400, 50, 90, 30}}),
            QRect(100, 50, 300, 200));
}

TEST(PlaceOnScreen, AWindowBeyondTheEdgeComesBackAsLittleAsItTakes) {
  EXPECT_EQ(PlaceOnScreen({900, 700, 300, 200}, kScreen, {}), QRect(700, 600, 300, 200));
  EXPECT_EQ(PlaceOnScreen({-50, -40, 300, 200}, kScreen, {}), QRect(0, 0, 300, 200));
  EXPECT_EQ(PlaceOnScreen({5000, 300, 300, 200}, kScreen, {}), QRect(700, 300, 300, 200));
}

TEST(PlaceOnScreen, ATooLargeWindowGetsTheScreen) {
  EXPECT_EQ(PlaceOnScreen({100, 50, 1200, 200}, kScreen, {}), QRect(0, 50, 1000, 200));
  EXPECT_EQ(PlaceOnScreen({100, 50, 1200, 900}, kScreen, {}), kScreen);
}

TEST(PlaceOnScreen, TheScreenMayBeTheSecondOne) {
  EXPECT_EQ(PlaceOnScreen({100, 50, 300, 200}, {1000, 100, 1000, 800}, {}),
            QRect(1000, 100, 300, 200));
}

// The window covers y 100 to 299. Up it would take 150 pixels, which are not there; left 100, down
// 80.
TEST(PlaceOnScreen, AButtonIsLeftFreeByTheShortestWay) {
  EXPECT_EQ(PlaceOnScreen({100, 100, 300, 200}, kScreen, {{300, 150, 100, 30}}),
            QRect(100, 180, 300, 200));
}

// Down to 440 it would stand on the second button, so it goes left, to x 0.
TEST(PlaceOnScreen, EveryButtonIsLeftFree) {
  EXPECT_EQ(
      PlaceOnScreen({100, 100, 300, 200}, kScreen, {{300, 150, 100, 30}, {100, 350, 300, 400}}),
      QRect(0, 100, 300, 200));
}

// 950 wide it covers the button wherever it stands but below it, where 500 high has no room: at the
// left edge 950 - 900 = 50 pixels of the button are covered, and that is the least.
TEST(PlaceOnScreen, WithoutRoomAsLittleAsCanBeIsCovered) {
  EXPECT_EQ(PlaceOnScreen({50, 200, 950, 500}, kScreen, {{900, 350, 100, 100}}),
            QRect(0, 200, 950, 500));
}

// Down, by the shortest way, it would stand on the line; so it goes left, to x 0.
TEST(PlaceOnScreen, ALineIsLeftFreeWhereTheButtonAllowsIt) {
  const QRect button(300, 150, 100, 30);
  EXPECT_EQ(PlaceOnScreen({100, 100, 300, 200}, kScreen, {button}, {{100, 350, 300, 400}}),
            QRect(0, 100, 300, 200));
  const QList<QRect> lines{{0, 60, 1000, 80}, {0, 370, 1000, 400}};
  EXPECT_FALSE(PlaceOnScreen({100, 100, 300, 200}, kScreen, {button}, lines).intersects(button));
}

class DockTest : public ::testing::Test {
 protected:
  static Docked DockAt(const QRect& window, const QRect& screen, const QList<QRect>& buttons = {}) {
    return DockBeside(window, buttons, {300, 400}, screen);
  }
};

TEST_F(DockTest, ThePanelStandsRightOfTheWindow) {
  const Docked places = DockAt({50, 80, 600, 500}, kScreen);
  EXPECT_EQ(places.Window, QRect(50, 80, 600, 500));
  EXPECT_EQ(places.Panel, QRect(650, 80, 300, 400));
}

TEST_F(DockTest, OrLeftOfItWhereThatHasTheRoom) {
  const Docked places = DockAt({390, 80, 600, 500}, kScreen);
  EXPECT_EQ(places.Window, QRect(390, 80, 600, 500));
  EXPECT_EQ(places.Panel, QRect(90, 80, 300, 400));
}

TEST_F(DockTest, ALowWindowsPanelIsWholeOnTheScreen) {
  EXPECT_EQ(DockAt({50, 600, 600, 190}, kScreen).Panel, QRect(650, 400, 300, 400));
}

TEST_F(DockTest, AWindowInTheMiddleGivesWay) {
  const Docked places = DockAt({200, 80, 600, 500}, kScreen);
  EXPECT_EQ(places.Window, QRect(100, 80, 600, 500));
  EXPECT_EQ(places.Panel, QRect(700, 80, 300, 400));
}

// Right or left it covers 200 of the window, below it nothing of its 250.
TEST_F(DockTest, OnASmallScreenItStandsBelow) {
  const Docked places = DockAt({50, 0, 700, 250}, {0, 0, 800, 700});
  EXPECT_EQ(places.Window, QRect(50, 0, 700, 250));
  EXPECT_EQ(places.Panel.top(), 250);
}

TEST_F(DockTest, WithoutAnyRoomTheButtonsStayFree) {
  const QRect button(600, 20, 150, 30);
  const Docked places = DockAt({0, 0, 800, 600}, {0, 0, 800, 600}, {button});
  EXPECT_FALSE(places.Panel.intersects(button));
  EXPECT_TRUE(QRect(0, 0, 800, 600).contains(places.Panel));
}

}  // namespace
}  // namespace morvane
