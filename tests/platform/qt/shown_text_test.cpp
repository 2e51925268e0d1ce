#include "platform/qt/shown_text.h"

#include <QPixmap>

#include "support/qt_desk.h"

namespace morvane {
namespace {

class ShownSuits : public ::testing::Test {
 protected:
  test::QtDesk desk;
  ShownText box{"box", "tip", nullptr};

  /// Whether anything in the box is much more red than green and blue.
  [[nodiscard]] bool HasRed() {
    const QImage image = box.grab().toImage();
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x) {
        const QColor colour = image.pixelColor(x, y);
        if (colour.red() - std::max(colour.green(), colour.blue()) > 80) return true;
      }
    }
    return false;
  }
};

TEST_F(ShownSuits, HaveTheirColoursAndThePlainText) {
  for (const auto& [text, red] :
       {std::pair("29% A♥ N", true), std::pair("4% 2♦ E", true), std::pair("50% K♠ S", false),
        std::pair("9% Q♣ W", false), std::pair("", false)}) {
    box.ShowSuits(QString::fromUtf8(text));
    EXPECT_EQ(box.text().toStdString(), text);
    EXPECT_EQ(HasRed(), red) << text;
    EXPECT_TRUE(box.isReadOnly());
  }
}

TEST_F(ShownSuits, AreRedOnADarkGroundToo) {
  box.ShowSuits(QString::fromUtf8("29% A♥ N"));
  QPalette dark(QColor(45, 45, 45));
  dark.setColor(QPalette::Base, QColor(30, 30, 30));
  box.setPalette(dark);
  EXPECT_TRUE(HasRed());
}

}  // namespace
}  // namespace morvane
