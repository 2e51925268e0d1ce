#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <span>
#include <string_view>

namespace morvane::simulator {

/// A shape that is printed on cards. Its coarse drawing is scaled to any size, and fills it from
/// edge to edge.
struct Glyph {
  static constexpr int kMostRows = 11;
  std::array<std::string_view, kMostRows> Drawing;  ///< '#' is ink
  int Rows = kMostRows;                             ///< of the drawing

  /// Whether it has ink at `x`, `y` when it is `width` wide and `height` high.
  [[nodiscard]] bool InkAt(int x, int y, int width, int height) const;
};

/// Of the ranks, in all languages, and of the joker.
[[nodiscard]] std::span<const Glyph> RankGlyphs();
/// [suit 1..4 - 1]
[[nodiscard]] std::span<const Glyph> SuitGlyphs();

/// How many ways there are to letter the honours; as `CardSettings::National` counts them.
inline constexpr int kNationals = 7;

/// The place of the joker's in `RankGlyphs`.
[[nodiscard]] std::size_t JokersGlyph();
/// The place in `RankGlyphs` of rank 2..14 on cards of this country 0..6; of any other the joker's.
[[nodiscard]] std::size_t GlyphOfRank(int rank, int national);
/// The rank that it is there; nothing for a letter that its cards do not have.
[[nodiscard]] std::optional<int> RankOfGlyph(std::size_t glyph, int national);

}  // namespace morvane::simulator
