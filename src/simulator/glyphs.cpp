#include "simulator/glyphs.h"

#include <algorithm>

namespace morvane::simulator {
namespace {

// Places in `kRanks`; the pips 2 to 10 come first.
enum : std::size_t { kA = 9, kK, kQ, kJ, kR, kD, kV, kB, kH, kE, kOne, kKn, kJoker, kRankGlyphs };

constexpr int kLowestRank = 2;
constexpr int kHighestPip = 10;
constexpr int kAce = 14;

/// Jack, queen, king, ace.
constexpr std::array<std::array<std::size_t, 4>, kNationals> kHonours{{
    {kJ, kQ, kK, kA},
    {kV, kD, kR, kA},
    {kV, kD, kR, kOne},
    {kB, kD, kK, kA},
    {kB, kV, kH, kA},
    {kB, kD, kK, kE},
    {kKn, kD, kK, kE},
}};

constexpr std::array<Glyph, kRankGlyphs> kRanks{{
    // 2
    {{".######.", "########", "##....##", "......##", ".....###", "...####.", "..###...",
      ".###....", "###.....", "########", "########"}},
    // 3
    {{".######.", "########", "##....##", "......##", "..#####.", "..#####.", "......##",
      "......##", "##....##", "########", ".######."}},
    // 4
    {{"....###.", "...####.", "..##.##.", ".##..##.", "##...##.", "##...##.", "########",
      "########", ".....##.", ".....##.", ".....##."}},
    // 5
    {{"########", "########", "##......", "##......", "#######.", "########", "......##",
      "......##", "##....##", "########", ".######."}},
    // 6
    {{"..#####.", ".######.", "###.....", "##......", "#######.", "########", "##....##",
      "##....##", "##....##", "########", ".######."}},
    // 7
    {{"########", "########", "......##", ".....###", ".....##.", "....###.", "....##..",
      "...###..", "...##...", "..###...", "..##...."}},
    // 8
    {{".######.", "########", "##....##", "##....##", ".######.", ".######.", "##....##",
      "##....##", "##....##", "########", ".######."}},
    // 9
    {{".######.", "########", "##....##", "##....##", "##....##", "########", ".#######",
      "......##", ".....###", ".######.", ".#####.."}},
    // 10, of two pieces
    {{"..##..#####.", ".###.#######", "####.##...##", "..##.##...##", "..##.##...##",
      "..##.##...##", "..##.##...##", "..##.##...##", "..##.##...##", "####.#######",
      "####..#####."}},
    // A
    {{"..####..", ".##..##.", "##....##", "##....##", "##....##", "########", "########",
      "##....##", "##....##", "##....##", "##....##"}},
    // K
    {{"##...###", "##..###.", "##.###..", "#####...", "####....", "####....", "#####...",
      "##.###..", "##..###.", "##...###", "##....##"}},
    // Q
    {{".######.", "########", "##....##", "##....##", "##....##", "##....##", "##....##",
      "##.##.##", "##..####", "#######.", ".####.##"}},
    // J
    {{"....####", "....####", ".....##.", ".....##.", ".....##.", ".....##.", ".....##.",
      "##...##.", "##...##.", "#######.", ".#####.."}},
    // R
    {{"#######.", "########", "##....##", "##....##", "########", "#######.", "####....",
      "#####...", "##.###..", "##..###.", "##...###"}},
    // D
    {{"######..", "#######.", "##...###", "##....##", "##....##", "##....##", "##....##",
      "##....##", "##...###", "#######.", "######.."}},
    // V
    {{"##....##", "##....##", "##....##", "##....##", "##....##", "###..###", "###..###",
      ".##..##.", ".######.", "..####..", "...##..."}},
    // B
    {{"#######.", "########", "##....##", "##....##", "#######.", "#######.", "##....##",
      "##....##", "##....##", "########", "#######."}},
    // H
    {{"##....##", "##....##", "##....##", "##....##", "########", "########", "##....##",
      "##....##", "##....##", "##....##", "##....##"}},
    // E
    {{"########", "########", "##......", "##......", "######..", "######..", "##......",
      "##......", "##......", "########", "########"}},
    // 1
    {{"...###..", "..####..", ".#####..", "######..", "...###..", "...###..", "...###..",
      "...###..", "...###..", "########", "########"}},
    // Kn, of two pieces
    {{"##..##.......", "##.###.......", "#####........", "####.........", "###....##.##.",
      "####...######", "####...###.##", "#####..##..##", "##.##..##..##", "##.###.##..##",
      "##..##.##..##"}},
    // A star
    {{"...##...", "...##...", "##.##.##", "########", ".######.", "..####..", ".######.",
      "########", "##.##.##", "...##...", "...##..."}},
}};

constexpr std::array<Glyph, 4> kSuits{{
    {{"....#....", "...###...", "..#####..", ".#######.", "#########", "#########", "#########",
      ".##.#.##.", "...###...", "..#####.."},
     10},
    {{".###.###.", "#########", "#########", "#########", "#########", ".#######.", "..#####..",
      "..#####..", "...###...", "....#...."},
     10},
    {{"....#....", "...###...", "...###...", "..#####..", ".#######.", "#########", ".#######.",
      "..#####..", "...###...", "....#...."},
     10},
    {{"...###...", "..#####..", "..#####..", "...###...", ".###.###.", "#########", "#########",
      ".##.#.##.", "...###...", "..#####.."},
     10},
}};

/// Where the middle of a pixel lies in the drawing: between two of its cells.
struct Between {
  int Low;
  int High;
  int Part;  ///< of `High`, in `Whole`-ths
  int Whole;
};

Between Cells(int pixel, int pixels, int cells) {
  const int whole = 2 * pixels;
  const int at = std::clamp((2 * pixel + 1) * cells - pixels, 0, (cells - 1) * whole);
  const int low = at / whole;
  return {low, std::min(low + 1, cells - 1), at % whole, whole};
}

}  // namespace

// Smoothed: where the cells around it have half the ink or more.
bool Glyph::InkAt(int x, int y, int width, int height) const {
  const Between column = Cells(x, width, static_cast<int>(Drawing[0].size()));
  const Between row = Cells(y, height, Rows);
  const auto inRow = [&](int at) {
    const std::string_view cells = Drawing[static_cast<std::size_t>(at)];
    const auto ink = [&cells](int cell) {
      return cells[static_cast<std::size_t>(cell)] == '#' ? 1 : 0;
    };
    return ink(column.Low) * (column.Whole - column.Part) + ink(column.High) * column.Part;
  };
  const int ink = inRow(row.Low) * (row.Whole - row.Part) + inRow(row.High) * row.Part;
  return 2 * ink >= column.Whole * row.Whole;
}

std::span<const Glyph> RankGlyphs() { return kRanks; }

std::span<const Glyph> SuitGlyphs() { return kSuits; }

std::size_t JokersGlyph() { return kJoker; }

std::size_t GlyphOfRank(int rank, int national) {
  if (rank < kLowestRank || rank > kAce || national < 0 || national >= kNationals) return kJoker;
  if (rank <= kHighestPip) return static_cast<std::size_t>(rank - kLowestRank);
  return kHonours[static_cast<std::size_t>(national)]
                 [static_cast<std::size_t>(rank - kHighestPip - 1)];
}

std::optional<int> RankOfGlyph(std::size_t glyph, int national) {
  for (int rank = kLowestRank; rank <= kAce; ++rank) {
    if (glyph != kJoker && GlyphOfRank(rank, national) == glyph) return rank;
  }
  return std::nullopt;
}

}  // namespace morvane::simulator
