#pragma once

#include <array>
#include <cstdint>
#include <optional>

#include "simulator/picture.h"

namespace morvane::simulator {

/// The pixels from `Left`, `Top` to `Right`, `Bottom`, which belong to it.
struct InkBox {
  int Left = Picture::kWidth;
  int Right = -1;
  int Top = Picture::kHeight;
  int Bottom = -1;

  void Add(int x, int y);
  [[nodiscard]] int Width() const { return Right - Left + 1; }
  [[nodiscard]] int Height() const { return Bottom - Top + 1; }
  [[nodiscard]] bool TouchesTheEdge() const;
  bool operator==(const InkBox&) const = default;
};

/// A picture of two levels, in which ink that hangs together is given a class of its own.
class InkLabels {
 public:
  enum Class : std::uint8_t { kPaper, kInk, kSymbol, kSuit };

  /// Where is looked for ink.
  struct Band {
    int Left;
    int Right;
    int Top;
    int Bottom;
  };

  /// From row `top` on, what is darker than `level` is ink.
  void Separate(const Picture& grey, int level, int top);
  /// The topmost ink of the band becomes `label`, as far as it hangs together, and with it all ink
  /// of the band's columns in the same rows: a ten is of two pieces. Nothing where there is no ink.
  std::optional<InkBox> Take(const Band& band, Class label);

  [[nodiscard]] const Picture& Labels() const { return labels_; }

 private:
  struct Point {
    int X;
    int Y;
  };
  [[nodiscard]] std::optional<Point> FirstInk(const Band& band) const;
  void Fill(Point from, Class label, InkBox& box);
  void Reach(int x, int y, Class label, InkBox& box);

  Picture labels_;
  std::array<std::uint16_t, std::size_t{Picture::kWidth} * Picture::kHeight> waiting_{};
  std::size_t waitingCount_ = 0;
};

}  // namespace morvane::simulator
