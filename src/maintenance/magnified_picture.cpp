#include "maintenance/magnified_picture.h"

#include <cmath>

namespace morvane::maintenance {
namespace {

constexpr Colour kRaster = 0xC0C0C0;

bool IsIn(int x, int y) {
  return x >= 0 && x < MagnifiedPicture::kWidth && y >= 0 && y < MagnifiedPicture::kHeight;
}

std::size_t Place(int x, int y) {
  return static_cast<std::size_t>(x) +
         std::size_t{MagnifiedPicture::kWidth} * static_cast<std::size_t>(y);
}

/// To the nearest pixel of the picture, halves to the even one: required.
int Nearest(int place) {
  return static_cast<int>(std::nearbyint(static_cast<double>(place) / MagnifiedPicture::kZoom));
}

}  // namespace

MagnifiedPicture::MagnifiedPicture(const PictureStore& pictures)
    : pictures_(pictures), pixels_(std::size_t{kWidth} * kHeight) {
  Refresh();
}

void MagnifiedPicture::Refresh() {
  for (int y = 0; y < kHeight; ++y) {
    for (int x = 0; x < kWidth; ++x) Set(x, y, pictures_.Magnified(x / kZoom, y / kZoom));
  }
}

/// The last line of either kind lies beyond the edge.
void MagnifiedPicture::Raster() {
  for (int i = 1; i <= PixelPlane::kWidth; ++i) {
    for (int y = 0; y < kHeight; ++y) Set(kZoom * i, y, kRaster);
  }
  for (int j = 0; j <= PixelPlane::kHeight; ++j) {
    for (int x = 0; x < kWidth; ++x) Set(x, kZoom * j, kRaster);
  }
}

Colour MagnifiedPicture::At(int x, int y) const {
  return IsIn(x, y) ? pixels_[Place(x, y)] : kWhite;
}

void MagnifiedPicture::Set(int x, int y, Colour colour) {
  if (IsIn(x, y)) pixels_[Place(x, y)] = colour;
}

MagnifiedPicture::ReadOut MagnifiedPicture::ReadAt(int x, int y) const {
  return {static_cast<int>(At(x, y) >> 16U & 0xFFU), Nearest(x), Nearest(y)};
}

}  // namespace morvane::maintenance
