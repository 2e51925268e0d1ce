#include <gtest/gtest.h>

#include <QFile>
#include <QImageReader>
#include <algorithm>
#include <cstdlib>
#include <filesystem>

#include "pictures/icon_svg.h"
#include "platform/qt/program_icon.h"

namespace morvane {
namespace {

constexpr int kTolerance = 4;  // another version of Qt may round an edge otherwise

const QString kIcons = MORVANE_ICONS;

QString FileOf(int size) { return kIcons + "/morvane_" + QString::number(size) + ".png"; }

int Difference(QRgb a, QRgb b) {
  return std::max({std::abs(qRed(a) - qRed(b)), std::abs(qGreen(a) - qGreen(b)),
                   std::abs(qBlue(a) - qBlue(b)), std::abs(qAlpha(a) - qAlpha(b))});
}

/// As seen: what shines through has hardly a colour.
int LargestDifference(const QImage& a, const QImage& b) {
  int largest = 0;
  for (int y = 0; y < a.height(); ++y) {
    for (int x = 0; x < a.width(); ++x) {
      largest =
          std::max(largest, Difference(qPremultiply(a.pixel(x, y)), qPremultiply(b.pixel(x, y))));
    }
  }
  return largest;
}

class IconFile : public testing::TestWithParam<int> {};

TEST_P(IconFile, IsAsTheWindowsIconIsDrawn) {
  const QImage file(FileOf(GetParam()));
  const QImage drawn = ProgramPicture(GetParam()).convertToFormat(QImage::Format_ARGB32);
  ASSERT_EQ(file.size(), QSize(GetParam(), GetParam()));
  EXPECT_LE(LargestDifference(file, drawn), kTolerance) << "tools/icons makes the files anew";
}

TEST_P(IconFile, IsACardWithADarkSpadeOnNothing) {
  const QImage file(FileOf(GetParam()));
  const int size = GetParam();
  EXPECT_EQ(qAlpha(file.pixel(0, 0)), 0);                                 // beside the card
  EXPECT_EQ(file.pixel(size / 2, size / 2), qRgb(0x10, 0x28, 0x48));      // the spade's body
  EXPECT_EQ(file.pixel(size / 4, size / 6 + 1), qRgb(0xff, 0xff, 0xff));  // the card's corner
}

INSTANTIATE_TEST_SUITE_P(Size, IconFile, testing::Values(16, 22, 24, 32, 48, 64, 128, 256, 512));

TEST(IconFiles, TheSvgHasTheSameOutlines) {
  QFile file(kIcons + "/morvane.svg");
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  EXPECT_EQ(QString::fromUtf8(file.readAll()), IconSvg()) << "tools/icons makes the files anew";
}

TEST(IconFiles, TheOneForWindowsHasTheSameDrawingAtItsSizes) {
  QImageReader pictures(kIcons + "/morvane.ico");
  QList<int> sizes;
  do {
    const QImage picture = pictures.read().convertToFormat(QImage::Format_ARGB32);
    sizes << picture.width();
    const QImage drawn = ProgramPicture(sizes.back()).convertToFormat(QImage::Format_ARGB32);
    ASSERT_EQ(picture.size(), drawn.size());
    EXPECT_LE(LargestDifference(picture, drawn), kTolerance) << "tools/icons makes the files anew";
  } while (pictures.jumpToNextImage());
  EXPECT_EQ(sizes, QList<int>({16, 20, 24, 32, 40, 48, 64, 128, 256}));
}

TEST(IconFiles, NoneLiesThereThatIsNotHeldAgainstTheDrawing) {
  const std::filesystem::directory_iterator files(MORVANE_ICONS);
  EXPECT_EQ(std::distance(begin(files), end(files)), 11);  // nine sizes, the SVG, that for Windows
}

}  // namespace
}  // namespace morvane
