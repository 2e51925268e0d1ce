#include "shell/ui/bar_chart.h"

#include <QApplication>
#include <QHelpEvent>
#include <QPixmap>
#include <QToolTip>

#include "platform/qt/readable_colour.h"
#include "support/qt_desk.h"

namespace morvane::shell {
namespace {

const QPalette kLight(QColor(239, 239, 239));
const QPalette kDark(QColor(45, 45, 45));

class Bars : public ::testing::Test {
 protected:
  Bars() {
    chart.resize(300, 200);
    chart.Show({{"one", 10, 5}, {"two", 0, 10}}, "spoken");
  }
  test::QtDesk desk;
  BarChart chart{"Bars", "", "Bars of numbers", BarChart::Legend::kNone, nullptr};

  [[nodiscard]] QColor Filled() const {
    return ReadableOn(chart.palette().color(QPalette::Window),
                      chart.palette().color(QPalette::Highlight));
  }
  /// How many pixels high a colour stands in the place of a pair, from where the tool tips begin.
  [[nodiscard]] int Height(const QString& pair, const QColor& colour) {
    const QImage image = chart.grab().toImage();
    int top = -1;
    int bottom = -1;
    for (int y = 0; y < image.height() && bottom < 0; ++y) {
      bool found = false;
      for (int x = 0; x < image.width(); ++x) {
        found |= image.pixelColor(x, y) == colour && chart.TextAt({x, y}) == pair;
      }
      if (found && top < 0) top = y;
      if (!found && top >= 0) bottom = y;
    }
    return top < 0 ? 0 : bottom - top;
  }
};

TEST_F(Bars, AreAsHighAsTheirNumbers) {
  chart.setPalette(kLight);
  const QColor outline = kLight.color(QPalette::WindowText);
  const int ten = Height("one: 10, expected 5.0", Filled());
  EXPECT_GT(ten, 100);
  EXPECT_EQ(Height("two: 0, expected 10.0", Filled()), 0);
  EXPECT_NEAR(Height("one: 10, expected 5.0", outline), ten / 2.0, 2);
  EXPECT_NEAR(Height("two: 0, expected 10.0", outline), ten, 2);
}

TEST_F(Bars, CanBeSeenOnEveryGround) {
  for (const QPalette& palette : {kLight, kDark}) {
    chart.setPalette(palette);
    EXPECT_GT(Height("one: 10, expected 5.0", Filled()), 0);
    EXPECT_GE(Contrast(Filled(), palette.color(QPalette::Window)), kReadable);
  }
}

TEST_F(Bars, APairTellsItsNumbersInItsToolTip) {
  chart.show();
  desk.Loop.Pump();
  const auto pointAt = [this](const QPoint& place) {
    QHelpEvent help(QEvent::ToolTip, place, chart.mapToGlobal(place));
    QApplication::sendEvent(&chart, &help);
    desk.Loop.Pump();
  };
  pointAt({220, 100});
  EXPECT_EQ(QToolTip::text(), "two: 0, expected 10.0");
  pointAt({80, 100});
  EXPECT_EQ(QToolTip::text(), "one: 10, expected 5.0");
  EXPECT_EQ(chart.TextAt({80, 2}), "") << "above the bars";
}

TEST_F(Bars, WithoutBarsNothingIsTold) {
  chart.Show({}, "");
  EXPECT_FALSE(chart.grab().isNull());
  EXPECT_EQ(chart.TextAt({80, 100}), "");
}

TEST_F(Bars, ManyOfThemFitIntoASmallPlace) {
  std::vector<CountBar> many;
  for (int i = 0; i < 39; ++i) many.push_back({"4432", 2560, 2560.0});
  chart.Show(many, "");
  chart.resize(chart.minimumSizeHint());
  EXPECT_GT(Height("4432: 2560, expected 2560.0", Filled()), chart.height() / 4);
}

}  // namespace
}  // namespace morvane::shell
