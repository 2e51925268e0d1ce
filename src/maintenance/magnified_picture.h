#pragma once

#include <vector>

#include "maintenance/picture_store.h"

namespace morvane::maintenance {

/// What the window `Magnify1` shows, to the pixel: the last picture, each pixel of it a square.
class MagnifiedPicture {
 public:
  static constexpr int kZoom = 4;
  static constexpr int kWidth = kZoom * PixelPlane::kWidth;
  static constexpr int kHeight = kZoom * PixelPlane::kHeight;

  /// `pictures` outlive it. Painted at once.
  explicit MagnifiedPicture(const PictureStore& pictures);

  /// Paints the picture as it is now, over whatever was drawn.
  void Refresh();
  /// Draws the grid of the picture's pixels on top.
  void Raster();
  /// White beyond its edges.
  [[nodiscard]] Colour At(int x, int y) const;

  struct ReadOut {
    int Bright = 0;  ///< the blue of what is painted: required
    int Cursor_x = 0;
    int Cursor_y = 0;
    bool operator==(const ReadOut&) const = default;
  };
  [[nodiscard]] ReadOut ReadAt(int x, int y) const;

 private:
  void Set(int x, int y, Colour colour);

  const PictureStore& pictures_;
  std::vector<Colour> pixels_;  ///< line by line
};

}  // namespace morvane::maintenance
