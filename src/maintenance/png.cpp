#include "maintenance/png.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace morvane::maintenance {
namespace {

constexpr std::size_t kMostStored = 0xFFFF;  // of a deflate block that is not compressed

constexpr char ByteOf(std::uint32_t value, unsigned shift) {
  return static_cast<char>(value >> shift & 0xFFU);
}

std::string HighFirst(std::uint32_t value) {
  return {ByteOf(value, 24), ByteOf(value, 16), ByteOf(value, 8), ByteOf(value, 0)};
}

std::string LowFirst16(std::uint32_t value) { return {ByteOf(value, 0), ByteOf(value, 8)}; }

std::uint32_t Crc32(std::string_view bytes) {
  std::uint32_t crc = ~0U;
  for (const char byte : bytes) {
    crc ^= static_cast<std::uint8_t>(byte);
    for (int bit = 0; bit < 8; ++bit) crc = crc >> 1U ^ ((crc & 1U) != 0 ? 0xEDB88320U : 0U);
  }
  return ~crc;
}

std::uint32_t Adler32(std::string_view bytes) {
  constexpr std::uint32_t kPrime = 65521;
  std::uint32_t low = 1;
  std::uint32_t high = 0;
  for (const char byte : bytes) {
    low = (low + static_cast<std::uint8_t>(byte)) % kPrime;
    high = (high + low) % kPrime;
  }
  return high << 16U | low;
}

/// A zlib stream that compresses nothing: a picture is 25 KB, and no library is needed.
std::string Stored(std::string_view bytes) {
  std::string stream = "\x78\x01";
  for (std::size_t at = 0; at < bytes.size(); at += kMostStored) {
    const std::string_view block = bytes.substr(at, kMostStored);
    const auto size = static_cast<std::uint32_t>(block.size());
    const bool last = at + block.size() == bytes.size();
    stream += last ? '\1' : '\0';
    stream += LowFirst16(size) + LowFirst16(~size);
    stream += block;
  }
  return stream + HighFirst(Adler32(bytes));
}

std::string Chunk(const std::string& type, std::string_view content) {
  const std::string checked = type + std::string(content);
  return HighFirst(static_cast<std::uint32_t>(content.size())) + checked +
         HighFirst(Crc32(checked));
}

std::string Header(bool grey) {
  constexpr char kGrey = 0;
  constexpr char kRgb = 2;
  const std::string size = HighFirst(PixelPlane::kWidth) + HighFirst(PixelPlane::kHeight);
  return Chunk("IHDR", size + std::string{8, grey ? kGrey : kRgb, 0, 0, 0});
}

std::string Pixels(const PictureStore& pictures, bool grey) {
  std::string rows;
  for (int y = 0; y < PixelPlane::kHeight; ++y) {
    rows += '\0';  // no filter
    for (int x = 0; x < PixelPlane::kWidth; ++x) {
      const Colour colour = pictures.Magnified(x, y);
      rows += ByteOf(colour, 0);
      if (!grey) rows += {ByteOf(colour, 8), ByteOf(colour, 16)};
    }
  }
  return rows;
}

}  // namespace

std::string PngOf(const PictureStore& pictures) {
  const bool grey = pictures.ImageMode == PictureStore::Kind::kGrey;
  return "\x89PNG\r\n\x1a\n" + Header(grey) + Chunk("IDAT", Stored(Pixels(pictures, grey))) +
         Chunk("IEND", "");
}

}  // namespace morvane::maintenance
