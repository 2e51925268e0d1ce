#pragma once

#include <string_view>

#include "model/board.h"
#include "platform/canvas.h"
#include "print/print_options.h"

namespace morvane::print {

// What hand records and score cards draw of a board.

inline constexpr Colour kBlack{0, 0, 0};
inline constexpr Colour kBlue{0, 0, 255};
inline constexpr Colour kRed{255, 0, 0};
inline constexpr Colour kLightGrey{0xE6, 0xE6, 0xE6};

/// Blue where colours are chosen, for titles and heads.
[[nodiscard]] constexpr Colour HeadColour(const PrintOptions& options) {
  return options.Colour ? kBlue : kBlack;
}
/// Of the sign and the ranks of suit 1..4.
[[nodiscard]] constexpr Colour SuitColour(const PrintOptions& options, int suit) {
  return options.Colour && (suit == 2 || suit == 3) ? kRed : kBlack;
}

/// The part of `width` that lies to the left of a text: none, half or all that the text leaves.
enum class Align : std::uint8_t { kLeft, kCentre, kRight };

/// A line of text within `width` points from `x` on. One that is longer is set in smaller letters
/// on the same baseline, so that it is never cut.
void DrawWithin(Canvas& canvas, double x, double y, double width, Align align,
                std::string_view text, const Font& font, Colour colour);

/// Where and how the four suits of a hand stand.
struct HandPlace {
  double X = 0;
  double Y = 0;          ///< the top of the spades
  double Width = 0;      ///< for the sign and the ranks
  double Pitch = 0;      ///< from suit to suit
  double SignPitch = 0;  ///< from a sign to its ranks, in widths of the sign
  double SignSize = 10;
  double RankSize = 10;
};
/// What the longest suit of the hand takes, in letters of full size.
[[nodiscard]] double WidthOfHand(const Canvas& canvas, const HandPlace& place, const Board& board,
                                 int hand, const PrintOptions& options);
/// A suit sign and its ranks a line; a void shows the sign alone.
void DrawHand(Canvas& canvas, const HandPlace& place, const Board& board, int hand,
              const PrintOptions& options);

/// A frame with the letters of the hands in their places.
void DrawCompass(Canvas& canvas, const Area& area, double size);

/// "HCP" with the points of the hands around it, as the hands sit.
struct PointsPlace {
  double Middle = 0;  ///< of the word
  double Y = 0;       ///< the top of North's points
  double Pitch = 0;   ///< from line to line
  double Span = 0;    ///< between West's points and East's, for the word
  double Size = 10;
};
void DrawPoints(Canvas& canvas, const PointsPlace& place, const Board& board);

/// The makeable levels on light grey, in `kHands` + 1 rows; nothing when the board has no result. A
/// level 0 is an empty place.
struct TricksPlace {
  double X = 0;
  double Y = 0;
  double Width = 0;
  double Pitch = 0;  ///< from row to row
  double Size = 10;
};
void DrawTricks(Canvas& canvas, const TricksPlace& place, const Board& board,
                const PrintOptions& options);

}  // namespace morvane::print
