#pragma once

#include <array>
#include <cstdint>

namespace morvane::maintenance {

/// A colour with red in the low byte.
using Colour = std::uint32_t;
inline constexpr Colour kWhite = 0xFFFFFF;
inline constexpr Colour kBlack = 0;
inline constexpr Colour kRed = 0x0000FF;
inline constexpr Colour kYellow = 0x00FFFF;
inline constexpr Colour kBlue = 0xFF0000;
[[nodiscard]] constexpr Colour Grey(std::uint8_t level) { return level * 0x010101U; }

/// What stands in a picture's window, to the pixel: the picture, the red row that runs down it, and
/// what was drawn on top. What is drawn beyond its edges is clipped.
class PaintedPicture {
 public:
  static constexpr int kColumns = 129;
  static constexpr int kRows = 193;

  PaintedPicture() { pixels_.fill(kWhite); }

  [[nodiscard]] Colour At(int x, int y) const { return IsIn(x, y) ? pixels_[Place(x, y)] : kWhite; }
  void Set(int x, int y, Colour colour) {
    if (IsIn(x, y)) pixels_[Place(x, y)] = colour;
  }
  /// From one corner to the other, both in it.
  void Outline(int left, int top, int right, int bottom, Colour colour);

 private:
  static constexpr bool IsIn(int x, int y) { return x >= 0 && x < kColumns && y >= 0 && y < kRows; }
  static constexpr std::size_t Place(int x, int y) {
    return static_cast<std::size_t>(x) + std::size_t{kColumns} * static_cast<std::size_t>(y);
  }
  std::array<Colour, std::size_t{kColumns} * kRows> pixels_{};
};

}  // namespace morvane::maintenance
