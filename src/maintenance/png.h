#pragma once

#include <string>

#include "maintenance/picture_store.h"

namespace morvane::maintenance {

/// The picture as the bytes of a PNG file, 128 x 192: grey of 8 bits, or, while `ImageMode` says
/// labels, these in the colours of the zoom.
[[nodiscard]] std::string PngOf(const PictureStore& pictures);

}  // namespace morvane::maintenance
