#pragma once

#include <gtest/gtest.h>
#include <png.h>

#include <string>
#include <vector>

namespace morvane::test {

/// A PNG file as another library reads it, a value a pixel, or three of red, green and blue.
struct PngPixels {
  explicit PngPixels(const std::string& bytes) {
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    EXPECT_NE(png_image_begin_read_from_memory(&image, bytes.data(), bytes.size()), 0);
    Grey = image.format == PNG_FORMAT_GRAY;
    Width = image.width;
    Height = image.height;
    std::vector<png_byte> values(PNG_IMAGE_SIZE(image));
    EXPECT_NE(png_image_finish_read(&image, nullptr, values.data(), 0, nullptr), 0);
    Values.assign(values.begin(), values.end());
  }
  [[nodiscard]] int At(int x, int y) const {
    return Values.at(static_cast<std::size_t>(x) + Width * static_cast<std::size_t>(y));
  }

  bool Grey = false;
  std::size_t Width = 0;
  std::size_t Height = 0;
  std::vector<int> Values;
};

}  // namespace morvane::test
