#include "simulator/ink_labels.h"

#include <algorithm>

namespace morvane::simulator {

void InkBox::Add(int x, int y) {
  Left = std::min(Left, x);
  Right = std::max(Right, x);
  Top = std::min(Top, y);
  Bottom = std::max(Bottom, y);
}

bool InkBox::TouchesTheEdge() const {
  return Left == 0 || Top == 0 || Right == Picture::kWidth - 1 || Bottom == Picture::kHeight - 1;
}

void InkLabels::Separate(const Picture& grey, int level, int top) {
  const auto separate = [level](std::uint8_t pixel) { return pixel < level ? kInk : kPaper; };
  const std::size_t first = Picture::Place(0, top);
  std::transform(grey.Pixels.begin() + first, grey.Pixels.end(), labels_.Pixels.begin() + first,
                 separate);
}

std::optional<InkBox> InkLabels::Take(const Band& band, Class label) {
  InkBox box;
  for (auto ink = FirstInk(band); ink;) {
    Fill(*ink, label, box);
    ink = FirstInk({band.Left, band.Right, box.Top, box.Bottom});
  }
  return box.Right < 0 ? std::nullopt : std::optional(box);
}

std::optional<InkLabels::Point> InkLabels::FirstInk(const Band& band) const {
  const int right = std::min(band.Right, Picture::kWidth - 1);
  const int bottom = std::min(band.Bottom, Picture::kHeight - 1);
  for (int y = std::max(band.Top, 0); y <= bottom; ++y) {
    for (int x = std::max(band.Left, 0); x <= right; ++x) {
      if (labels_.At(x, y) == kInk) return Point{x, y};
    }
  }
  return std::nullopt;
}

/// Pixels that touch at a corner hang together too.
void InkLabels::Fill(Point from, Class label, InkBox& box) {
  waitingCount_ = 0;
  Reach(from.X, from.Y, label, box);
  while (waitingCount_ > 0) {
    const int place = waiting_[--waitingCount_];
    const int x = place % Picture::kWidth;
    const int y = place / Picture::kWidth;
    for (int down = -1; down <= 1; ++down) {
      for (int right = -1; right <= 1; ++right) Reach(x + right, y + down, label, box);
    }
  }
}

void InkLabels::Reach(int x, int y, Class label, InkBox& box) {
  if (!Picture::Has(x, y) || labels_.At(x, y) != kInk) return;
  labels_.Set(x, y, label);
  box.Add(x, y);
  waiting_[waitingCount_++] = static_cast<std::uint16_t>(Picture::Place(x, y));
}

}  // namespace morvane::simulator
