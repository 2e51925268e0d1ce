#include "maintenance/png.h"

#include <gtest/gtest.h>
#include <png.h>

#include <memory>
#include <vector>

namespace morvane::maintenance {
namespace {

class Png : public ::testing::Test {
 protected:
  std::unique_ptr<PictureStore> store = std::make_unique<PictureStore>();
  png_image image{};

  void SetUp() override { image.version = PNG_IMAGE_VERSION; }
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
  /// The pixels of what `PngOf` makes, read back as they are in the file.
  std::vector<int> ReadBack() {
    const std::string png = PngOf(*store);
    EXPECT_NE(png_image_begin_read_from_memory(&image, png.data(), png.size()), 0);
    std::vector<png_byte> bytes(PNG_IMAGE_SIZE(image));
    EXPECT_NE(png_image_finish_read(&image, nullptr, bytes.data(), 0, nullptr), 0);
    return {bytes.begin(), bytes.end()};
  }
};

TEST_F(Png, OfAGreyPictureIsAByteAPixel) {
  TakeAll(PictureStore::Kind::kGrey, 256);
  const std::vector<int> pixels = ReadBack();
  EXPECT_EQ(image.width, 128U);
  EXPECT_EQ(image.height, 192U);
  EXPECT_EQ(image.format, PNG_FORMAT_GRAY);
  ASSERT_EQ(pixels.size(), 128U * 192);
  for (std::size_t y = 0; y < 192; ++y) {
    for (std::size_t x = 0; x < 128; ++x) {
      ASSERT_EQ(pixels[x + 128 * y], static_cast<int>((x + y) % 256));
    }
  }
}

TEST_F(Png, OfLabelsHasTheColoursOfTheZoom) {
  TakeAll(PictureStore::Kind::kLabels, 4);
  const std::vector<int> pixels = ReadBack();
  EXPECT_EQ(image.format, PNG_FORMAT_RGB);
  ASSERT_EQ(pixels.size(), 3U * 128 * 192);
  EXPECT_EQ(std::vector(pixels.begin(), pixels.begin() + 12),
            (std::vector{255, 255, 255, 0, 0, 0, 192, 0, 0, 0, 192, 255}))
      << "paper, ink, and the two others";
}

}  // namespace
}  // namespace morvane::maintenance
