#include <QLabel>
#include <QRegularExpression>

#include "machine/ui/run_colours.h"
#include "model/ui/compass.h"
#include "platform/qt/readable_colour.h"
#include "shell/ui/every_window.h"

namespace morvane::shell {
namespace {

using ::testing::Values;

QPalette Light() { return QPalette(QColor(239, 239, 239)); }
QPalette Dark() {
  QPalette palette(QColor(45, 45, 45));
  palette.setColor(QPalette::Base, QColor(30, 30, 30));
  return palette;
}

std::string NameOf(const QWidget& control) {
  return control.window()->objectName().toStdString() + " " + control.objectName().toStdString() +
         " " + control.metaObject()->className();
}

/// Under every palette, in and out of its hand.
class Readable : public EveryWindow, public ::testing::WithParamInterface<bool> {
 protected:
  const QPalette before = QApplication::palette();
  Readable() { QApplication::setPalette(GetParam() ? Dark() : Light()); }
  ~Readable() override { QApplication::setPalette(before); }
};

INSTANTIATE_TEST_SUITE_P(LightAndDark, Readable, Values(false, true));

/// The colour that most of the image has, and the one that stands out most from it.
std::pair<QColor, QColor> GroundAndText(const QImage& image) {
  std::map<QRgb, int> pixels;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) ++pixels[image.pixel(x, y)];
  }
  const QColor ground = std::max_element(pixels.begin(), pixels.end(), [](auto one, auto other) {
                          return one.second < other.second;
                        })->first;
  QColor text = ground;
  for (const auto& [pixel, count] : pixels) {
    if (Contrast(ground, pixel) > Contrast(ground, text)) text = pixel;
  }
  return {ground, text};
}

TEST_P(Readable, EveryTextThatIsPaintedStandsOutFromItsGround) {
  int texts = 0;
  LookAtAll([&](QWidget& window) {
    for (auto* label : window.findChildren<QLabel*>()) {
      if (!label->isVisible() || !label->isEnabled() || label->text().trimmed().isEmpty()) continue;
      ++texts;
      const QImage image =
          window.grab(QRect(label->mapTo(&window, QPoint()), label->size())).toImage();
      const auto [ground, text] = GroundAndText(image);
      EXPECT_GE(Contrast(ground, text), 4.5) << NameOf(*label) << " " << text.name().toStdString()
                                             << " on " << ground.name().toStdString();
    }
  });
  EXPECT_GT(texts, 50);
}

TEST_P(Readable, EveryPaletteHasTheContrastOfText) {
  LookAtAll([](QWidget& window) {
    for (const auto* control : window.findChildren<QWidget*>()) {
      if (!control->isVisible() || !control->isEnabled()) continue;
      const QPalette& palette = control->palette();
      for (const auto& [text, ground] : {std::pair(QPalette::WindowText, QPalette::Window),
                                         std::pair(QPalette::Text, QPalette::Base),
                                         std::pair(QPalette::ButtonText, QPalette::Button)}) {
        EXPECT_GE(Contrast(palette.color(text), palette.color(ground)), 4.5) << NameOf(*control);
      }
    }
  });
}

TEST_P(Readable, EveryColourWithinATextStandsOutToo) {
  const QRegularExpression colour("color:(#[0-9a-f]{6})");
  int colours = 0;
  LookAtPanel([&](QWidget& window) {
    for (const auto* label : window.findChildren<QLabel*>()) {
      auto found = colour.globalMatch(label->text());
      while (found.hasNext()) {
        ++colours;
        const QColor text(found.next().captured(1));
        EXPECT_GE(Contrast(text, label->palette().color(QPalette::Window)), 4.5)
            << NameOf(*label) << " " << text.name().toStdString();
      }
    }
  });
  EXPECT_EQ(colours, 8) << "hearts and diamonds of four hands";
}

TEST_P(Readable, APanelFollowsTheDesktop) {
  LookAtPanel([this](QWidget& panel) {
    QApplication::setPalette(GetParam() ? Light() : Dark());
    desk.Loop.WaitMs(200);
    const auto& pocket = test::Find<QLabel>(panel, "lblPocket_1");
    const QColor text(pocket.text().section("color:", 1).left(7));
    EXPECT_GE(Contrast(text, panel.palette().color(QPalette::Window)), 4.5);
  });
}

/// The board is drawn on the same paper on any desktop.
TEST_P(Readable, TheSheetOfTheBoardIsTheSame) {
  LookAtRun([](QWidget& window) {
    if (window.objectName() != "DealinProg") return;
    const QImage image = test::Find<QWidget>(window, "Picture1").grab().toImage();
    EXPECT_EQ(GroundAndText(image).first, machine::kPaper);
  });
}

// The pale colours are left out: they are given, and no ground can carry them beside black.
TEST(SheetColours, EveryTextStandsOutFromThePaper) {
  for (const QColor& text :
       {machine::kBoardNumber, machine::kBlackSuit, machine::kRedSuit, machine::kNote}) {
    EXPECT_GE(Contrast(text, machine::kPaper), 4.5) << text.name().toStdString();
  }
}

TEST(SheetColours, WhiteTextStandsOutFromItsGrounds) {
  for (const QColor& ground : {machine::kGreenGround, machine::kBlueGround, machine::kRedGround,
                               machine::kGreyGround, kSafe, kVulnerable}) {
    EXPECT_GE(Contrast(Qt::white, ground), 4.5) << ground.name().toStdString();
  }
}

TEST(SheetColours, ThePaleOnesAreGiven) {
  EXPECT_EQ(machine::kPaleBlackSuit, QColor(128, 128, 128));
  EXPECT_EQ(machine::kPaleRedSuit, QColor(255, 128, 128));
}

}  // namespace
}  // namespace morvane::shell
