#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace morvane::simulator {

/// What lies in the camera's buffer: a byte a pixel, row by row.
struct Picture {
  static constexpr int kWidth = 128;
  static constexpr int kHeight = 192;
  std::array<std::uint8_t, std::size_t{kWidth} * kHeight> Pixels{};

  [[nodiscard]] static constexpr std::size_t Place(int x, int y) {
    return static_cast<std::size_t>(x) + std::size_t{kWidth} * static_cast<std::size_t>(y);
  }
  [[nodiscard]] static constexpr bool Has(int x, int y) {
    return x >= 0 && x < kWidth && y >= 0 && y < kHeight;
  }
  [[nodiscard]] std::uint8_t At(int x, int y) const { return Pixels[Place(x, y)]; }
  void Set(int x, int y, std::uint8_t value) { Pixels[Place(x, y)] = value; }
  bool operator==(const Picture&) const = default;
};

}  // namespace morvane::simulator
