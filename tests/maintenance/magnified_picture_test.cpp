#include "maintenance/magnified_picture.h"

#include <gtest/gtest.h>

#include <memory>

namespace morvane::maintenance {
namespace {

using ReadOut = MagnifiedPicture::ReadOut;

class Magnified : public ::testing::Test {
 protected:
  std::unique_ptr<PictureStore> store = std::make_unique<PictureStore>();

  [[nodiscard]] Colour ColourOfClass(std::uint8_t value) {
    store->ImageMode = PictureStore::Kind::kLabels;
    store->LabelImage.Set(7, 9, value);
    return MagnifiedPicture(*store).At(4 * 7 + 1, 4 * 9 + 2);
  }
};

TEST_F(Magnified, EachPixelIsASquareOfFour) {
  store->CardImage.Set(3, 5, 0x40);
  const MagnifiedPicture picture(*store);
  for (int x = 12; x <= 15; ++x) {
    for (int y = 20; y <= 23; ++y) EXPECT_EQ(picture.At(x, y), 0x404040U) << x << " " << y;
  }
  for (const auto& [x, y] : {std::pair(11, 20), {16, 20}, {12, 19}, {12, 24}}) {
    EXPECT_EQ(picture.At(x, y), 0U) << x << " " << y;
  }
}

TEST_F(Magnified, TheLastPixelFillsTheCorner) {
  store->CardImage.Set(127, 191, 255);
  const MagnifiedPicture picture(*store);
  EXPECT_EQ(picture.At(511, 767), 0xFFFFFFU);
  EXPECT_EQ(picture.At(508, 764), 0xFFFFFFU);
  EXPECT_EQ(picture.At(507, 767), 0U);
}

TEST_F(Magnified, EachClassHasItsColourAndTheThirdTheOneOfTheSecondTest) {
  EXPECT_EQ(ColourOfClass(0), 0xFFFFFFU);
  EXPECT_EQ(ColourOfClass(1), 0U);
  EXPECT_EQ(ColourOfClass(2), 0xC0U);
  EXPECT_EQ(ColourOfClass(3), 0xFFC000U) << "and not blue";
}

TEST_F(Magnified, ItIsPaintedAnewOnlyWhenItIsAsked) {
  MagnifiedPicture picture(*store);
  store->CardImage.Set(0, 0, 9);
  EXPECT_EQ(picture.At(0, 0), 0U);
  picture.Refresh();
  EXPECT_EQ(picture.At(0, 0), 0x090909U);
}

TEST_F(Magnified, TheRasterIsALineForEachPixelAndGoesWithARefresh) {
  MagnifiedPicture picture(*store);
  picture.Raster();
  for (const auto& [x, y] :
       {std::pair(4, 1), {4, 767}, {508, 1}, {0, 0}, {511, 0}, {1, 4}, {511, 764}}) {
    EXPECT_EQ(picture.At(x, y), 0xC0C0C0U) << x << " " << y;
  }
  for (const auto& [x, y] : {std::pair(0, 1), {3, 1}, {5, 1}, {511, 767}, {1, 3}, {1, 765}}) {
    EXPECT_EQ(picture.At(x, y), 0U) << x << " " << y;
  }
  picture.Refresh();
  EXPECT_EQ(picture.At(4, 1), 0U);
}

TEST_F(Magnified, TheReadOutIsTheBlueOfWhatIsPainted) {
  store->CardImage.Set(0, 0, 64);
  MagnifiedPicture picture(*store);
  EXPECT_EQ(picture.ReadAt(1, 1).Bright, 64);
  picture.Raster();
  EXPECT_EQ(picture.ReadAt(1, 0).Bright, 0xC0);
  store->ImageMode = PictureStore::Kind::kLabels;
  store->LabelImage.Set(0, 0, 2);
  store->LabelImage.Set(1, 0, 3);
  picture.Refresh();
  EXPECT_EQ(picture.ReadAt(1, 1).Bright, 0) << "red";
  EXPECT_EQ(picture.ReadAt(5, 1).Bright, 255);
}

// x / 4: 0.5, 1.5, 2.5; 0.75; 127.75.
TEST_F(Magnified, ThePlaceIsRoundedToTheNearestAndHalvesToTheEvenOne) {
  const MagnifiedPicture picture(*store);
  EXPECT_EQ(picture.ReadAt(2, 2), (ReadOut{0, 0, 0}));
  EXPECT_EQ(picture.ReadAt(6, 6), (ReadOut{0, 2, 2}));
  EXPECT_EQ(picture.ReadAt(10, 10), (ReadOut{0, 2, 2}));
  EXPECT_EQ(picture.ReadAt(3, 5), (ReadOut{0, 1, 1}));
  EXPECT_EQ(picture.ReadAt(511, 767), (ReadOut{0, 128, 192}));
}

}  // namespace
}  // namespace morvane::maintenance
