#include "maintenance/painted_picture.h"

namespace morvane::maintenance {

void PaintedPicture::Outline(int left, int top, int right, int bottom, Colour colour) {
  for (int x = left; x <= right; ++x) {
    Set(x, top, colour);
    Set(x, bottom, colour);
  }
  for (int y = top; y <= bottom; ++y) {
    Set(left, y, colour);
    Set(right, y, colour);
  }
}

}  // namespace morvane::maintenance
