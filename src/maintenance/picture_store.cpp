#include "maintenance/picture_store.h"

namespace morvane::maintenance {
namespace {

/// By class. The third was meant for another colour, which a later test replaced: required.
constexpr std::array<Colour, 4> kClassColours{kWhite, kBlack, 0x0000C0, 0xFFC000};

}  // namespace

void PictureStore::Take(int y, std::span<const std::uint8_t, PixelPlane::kWidth> pixels) {
  for (int x = 0; x < PixelPlane::kWidth; ++x) {
    const std::uint8_t value = pixels[static_cast<std::size_t>(x)];
    const bool grey = ImageMode == Kind::kGrey;
    Picture1.Set(x, y, grey ? Grey(value) : value != 0 ? kBlack : kWhite);
    Picture1.Set(x, y + 1, kRed);  // how far the transfer has come
    CardImage.Set(x, y, value);    // also of labels: required
    if (!grey) LabelImage.Set(x, y, value);
  }
}

void PictureStore::DrawFrames(const wire::SymbolFrame& symbol, const wire::SymbolFrame& suit) {
  for (const wire::SymbolFrame& box : {symbol, suit}) {
    Picture1.Outline(box.XMin, box.YMin, box.XMax, box.YMax, kRed);
  }
}

void PictureStore::DrawStart(int startX, int startY) {
  constexpr int kHalfBand = 30;
  Picture1.Outline(startX - kHalfBand, 20, startX + kHalfBand, 190, kYellow);
  DrawStartPoint(startX, startY);
}

void PictureStore::DrawStartPoint(int startX, int startY) {
  for (const auto& [half, colour] : {std::pair{2, kYellow}, {3, kYellow}, {4, kBlue}, {5, kBlue}}) {
    Picture1.Outline(startX - half, startY - half, startX + half, startY + half, colour);
  }
}

Colour PictureStore::Magnified(int x, int y) const {
  if (ImageMode == Kind::kGrey) return Grey(CardImage.At(x, y));
  const std::uint8_t value = LabelImage.At(x, y);
  return value < kClassColours.size() ? kClassColours[value] : kWhite;
}

}  // namespace morvane::maintenance
