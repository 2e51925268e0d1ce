#include "simulator/camera.h"

#include <algorithm>

#include "simulator/card_rank.h"
#include "simulator/glyphs.h"

namespace morvane::simulator {
namespace {

using wire::MachineCard;

std::uint64_t SeedOf(const Options& options) {
  constexpr std::uint64_t kOwnSeries = 0xD1B54A32D192ED03U;
  return options.Seed ? *options.Seed ^ kOwnSeries : std::uint64_t{std::random_device{}()};
}

/// `glyph` with its upper left corner at `left`, `top`, as far as it is in the picture.
void Print(const Glyph& glyph, PrintSize size, int left, int top, Picture& picture) {
  for (int y = 0; y < size.Height; ++y) {
    for (int x = 0; x < size.Width; ++x) {
      const bool seen = Picture::Has(left + x, top + y);
      if (seen && glyph.InkAt(x, y, size.Width, size.Height)) {
        picture.Set(left + x, top + y, Camera::kInk);
      }
    }
  }
}

}  // namespace

Camera::Camera(const Options& options)
    : print_(options), card_(options.Card), engine_(SeedOf(options)) {}

void Camera::Show(int machineCard) {
  if (machineCard < 0 || machineCard > MachineCard::kLast || machineCard == card_) return;
  card_ = machineCard;
  ++changes_;
}

void Camera::Take(int machineCard, CameraPlace at, bool lit, Picture& picture) {
  picture.Pixels.fill(!lit ? kDark : machineCard == 0 ? kBare : kPaper);
  if (lit && machineCard != 0) Draw(machineCard, at, picture);
  AddNoise(picture);
}

void Camera::Draw(int machineCard, CameraPlace at, Picture& picture) const {
  const int frameLeft = kFrameQuarter - (print_.Symbol.Width + 1) / 4 + at.X - print_.Ideal.X;
  const int left = frameLeft + 1;
  const int top = kFrameTop + 1 + at.Y - print_.Ideal.Y;
  const CardRank card = RankOfCard(machineCard);
  Print(RankGlyphs()[GlyphOfRank(card.Rank, print_.Letters)], print_.Symbol, left, top, picture);
  if (card.Suit == 0) return;
  Print(SuitGlyphs()[static_cast<std::size_t>(card.Suit - 1)], print_.Suit,
        left + (print_.Symbol.Width - print_.Suit.Width) / 2, top + print_.Symbol.Height + kGap,
        picture);
}

void Camera::AddNoise(Picture& picture) {
  constexpr std::size_t kAtOnce = 8;
  std::uint64_t random = 0;
  for (std::size_t i = 0; i < picture.Pixels.size(); ++i, random >>= 8U) {
    if (i % kAtOnce == 0) random = engine_();
    const int noise = static_cast<int>((random & 0xFFU) % (2 * kNoise + 1)) - kNoise;
    picture.Pixels[i] = static_cast<std::uint8_t>(picture.Pixels[i] + noise);
  }
}

std::uint8_t SharpnessOf(const Picture& picture) {
  const auto [darkest, brightest] =
      std::minmax_element(picture.Pixels.begin(), picture.Pixels.end());
  return static_cast<std::uint8_t>(*brightest - *darkest);
}

}  // namespace morvane::simulator
