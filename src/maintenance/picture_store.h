#pragma once

#include <array>
#include <cstdint>
#include <span>

#include "maintenance/painted_picture.h"
#include "wire/picture_replies.h"

namespace morvane::maintenance {

/// One value a pixel of the camera's picture. The last column and row stay unused.
class PixelPlane {
 public:
  static constexpr int kWidth = 128;
  static constexpr int kHeight = 192;

  [[nodiscard]] std::uint8_t At(int x, int y) const { return values_[Place(x, y)]; }
  void Set(int x, int y, std::uint8_t value) { values_[Place(x, y)] = value; }

 private:
  static constexpr std::size_t Place(int x, int y) {
    return static_cast<std::size_t>(x) + std::size_t{kWidth + 1} * static_cast<std::size_t>(y);
  }
  std::array<std::uint8_t, std::size_t{kWidth + 1} * (kHeight + 1)> values_{};
};

/// The pictures that the service has fetched; they live as long as the program.
struct PictureStore {
  enum class Kind : std::uint8_t { kGrey, kLabels };

  PixelPlane CardImage;          ///< grey, 0 black .. 255 white
  PixelPlane LabelImage;         ///< the recogniser's classes, 0 paper, 1 ink, 2 and 3 others
  Kind ImageMode = Kind::kGrey;  ///< what the next lines are
  PaintedPicture Picture1;       ///< as the console shows it

  /// A line of the picture; y 0..191.
  void Take(int y, std::span<const std::uint8_t, PixelPlane::kWidth> pixels);
  /// "Draw frames".
  void DrawFrames(const wire::SymbolFrame& symbol, const wire::SymbolFrame& suit);
  /// "Draw start point": the band that is searched, and the point where that begins.
  void DrawStart(int startX, int startY);
  /// The point alone.
  void DrawStartPoint(int startX, int startY);
  /// What the zoom shows of a pixel.
  [[nodiscard]] Colour Magnified(int x, int y) const;
};

}  // namespace morvane::maintenance
