#include "maintenance/png.h"

#include <png.h>

#include <vector>

namespace morvane::maintenance {
namespace {

/// 0 red, 1 green, 2 blue.
png_byte Channel(Colour colour, unsigned channel) {
  return static_cast<png_byte>(colour >> 8 * channel & 0xFFU);
}

std::vector<png_byte> Pixels(const PictureStore& pictures, bool grey) {
  std::vector<png_byte> bytes;
  for (int y = 0; y < PixelPlane::kHeight; ++y) {
    for (int x = 0; x < PixelPlane::kWidth; ++x) {
      const Colour colour = pictures.Magnified(x, y);
      bytes.push_back(Channel(colour, 0));
      if (!grey) bytes.insert(bytes.end(), {Channel(colour, 1), Channel(colour, 2)});
    }
  }
  return bytes;
}

}  // namespace

std::string PngOf(const PictureStore& pictures) {
  const bool grey = pictures.ImageMode == PictureStore::Kind::kGrey;
  png_image image{};
  image.version = PNG_IMAGE_VERSION;
  image.width = PixelPlane::kWidth;
  image.height = PixelPlane::kHeight;
  image.format = grey ? PNG_FORMAT_GRAY : PNG_FORMAT_RGB;
  const std::vector<png_byte> pixels = Pixels(pictures, grey);
  png_alloc_size_t size = PNG_IMAGE_PNG_SIZE_MAX(image);
  std::string bytes(size, '\0');
  png_image_write_to_memory(&image, bytes.data(), &size, 0, pixels.data(), 0, nullptr);
  bytes.resize(size);
  return bytes;
}

}  // namespace morvane::maintenance
