#pragma once

#include <array>
#include <cstddef>

namespace morvane::print {

/// How the boards of a hand record stand on a page. The numbers were tuned by eye on real paper:
/// required.
struct Layout {
  int PerPage = 0;
  int Columns = 1;
  int Rows = 1;
  double TableSize = 0;      ///< of the letters of the table and of the statistics, in points
  double CompassWidth = 0;   ///< in fifths of a point
  double CompassHeight = 0;  ///< in fifths of a point, at most
  double WestFrom = 0;       ///< from the cell's left edge to West's suit signs, in points
  double CompassAt = 0;      ///< the compass's middle, in thousandths of the cell's width
  double TableFrom = 0;      ///< the table's left edge, in widths of the cell
  double TablePitch = 0;     ///< from row to row, in lines of its letters
  double SignPitch = 0;      ///< from a suit sign to its ranks, in widths of the sign
  double PointsPitch = 0;    ///< from row to row of the points, in lines
  double PointsSpan = 0;     ///< between West's and East's points, in sizes of the table's letters
  double LinePitch = 0;      ///< from suit to suit, in lines
  double TableTop = 0;       ///< of table and points, in distances from North's top to South's
};

/// By "PrintPerPage" - 1.
inline constexpr std::array<Layout, 4> Layouts{{
    {10, 2, 5, 10, 150, 250, 30, 500, 0.79, 0.8, 1.2, 0.8, 3.2, 0.85, 0.97},
    {12, 2, 6, 10, 140, 200, 30, 500, 0.8, 0.8, 1.2, 0.88, 3.2, 0.85, 1.0},
    {15, 3, 5, 8, 130, 200, 10, 400, 0.73, 0.85, 1.2, 0.8, 4, 0.86, 0.97},
    {18, 3, 6, 8, 130, 200, 10, 400, 0.76, 0.88, 1.1, 0.75, 4, 0.86, 1.02},
}};

[[nodiscard]] constexpr const Layout& LayoutOf(int perPage) {
  return Layouts[static_cast<std::size_t>(perPage) - 1];
}

}  // namespace morvane::print
