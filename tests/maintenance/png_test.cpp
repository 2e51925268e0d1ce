#include "maintenance/png.h"

#include <gtest/gtest.h>

#include <memory>

// The sums were worked out with another library.

namespace morvane::maintenance {
namespace {

using namespace std::string_literals;

class Png : public ::testing::Test {
 protected:
  std::unique_ptr<PictureStore> store = std::make_unique<PictureStore>();

  void TakeAll(PictureStore::Kind kind, int classes) {
    store->ImageMode = kind;
    for (int y = 0; y < PixelPlane::kHeight; ++y) {
      std::array<std::uint8_t, PixelPlane::kWidth> line{};
      for (int x = 0; x < PixelPlane::kWidth; ++x) {
        line[static_cast<std::size_t>(x)] = static_cast<std::uint8_t>((x + y) % classes);
      }
      store->Take(y, line);
    }
  }
};

TEST_F(Png, OfAGreyPictureIsAByteAPixel) {
  TakeAll(PictureStore::Kind::kGrey, 256);
  const std::string png = PngOf(*store);
  ASSERT_EQ(png.size(), 24836U);
  EXPECT_EQ(png.substr(0, 33),
            "\x89PNG\r\n\x1a\n\0\0\0\x0dIHDR\0\0\0\x80\0\0\0\xC0\x08\0\0\0\0\xe9\x0d\x34\x7b"s);
  EXPECT_EQ(png.substr(33, 8), "\0\0\x60\xCBIDAT"s);
  EXPECT_EQ(png.substr(41, 12), "\x78\x01\x01\xC0\x60\x3F\x9F\0\0\1\2\3"s) << "one whole block";
  EXPECT_EQ(png.substr(33 + 8 + 7 + 129, 4), "\0\1\2\3"s) << "the second row";
  EXPECT_EQ(png.substr(24836 - 20),
            "\x20\x5b\xc2\xfe\x69\xbf\x45\x1c\0\0\0\0IEND\xAE\x42\x60\x82"s);
}

TEST_F(Png, OfLabelsHasTheColoursOfTheZoom) {
  TakeAll(PictureStore::Kind::kLabels, 4);
  const std::string png = PngOf(*store);
  ASSERT_EQ(png.size(), 73993U) << "two blocks";
  EXPECT_EQ(png.substr(16, 13), "\0\0\0\x80\0\0\0\xC0\x08\2\0\0\0"s);
  EXPECT_EQ(png.substr(48, 13), "\0\xFF\xFF\xFF\0\0\0\xC0\0\0\0\xC0\xFF"s)
      << "paper, ink, and the two others";
  EXPECT_EQ(png.substr(73993 - 20, 8), "\xf4\x10\xa7\xae\x38\xd2\x10\x8f"s);
}

}  // namespace
}  // namespace morvane::maintenance
