#include "platform/qt/suit_text.h"

#include <gtest/gtest.h>

#include <QPalette>

#include "platform/qt/readable_colour.h"

namespace morvane {
namespace {

const QPalette kLight(QColor(239, 239, 239));
const QPalette kDark(QColor(45, 45, 45));

TEST(SuitText, HeartsAndDiamondsAreRedAndTheOthersAsText) {
  for (const QPalette& palette : {kLight, kDark}) {
    EXPECT_EQ(SuitColour(1, palette), palette.color(QPalette::WindowText));
    EXPECT_EQ(SuitColour(4, palette), palette.color(QPalette::WindowText));
    for (const std::size_t suit : {2U, 3U}) {
      const QColor red = SuitColour(suit, palette);
      EXPECT_GT(red.red(), red.green());
      EXPECT_EQ(red.green(), red.blue());
      EXPECT_GE(Contrast(red, palette.color(QPalette::Window)), kReadable);
    }
  }
}

TEST(SuitText, OnlyTheSignsAreColoured) {
  EXPECT_EQ(ColouredSuits(QString::fromUtf8("30% A♥ N"), kLight),
            QString::fromUtf8("30% A<span style='color:#c00000'>♥</span> N"));
  EXPECT_EQ(ColouredSuits("no sign", kLight), "no sign");
}

TEST(SuitText, PlainTextIsNotTakenForMarkup) {
  EXPECT_EQ(ColouredSuits(QString::fromUtf8("<b> & ♦"), kLight),
            QString::fromUtf8("&lt;b&gt; &amp; <span style='color:#c00000'>♦</span>"));
}

}  // namespace
}  // namespace morvane
