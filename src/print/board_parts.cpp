#include "print/board_parts.h"

#include <algorithm>
#include <array>
#include <string>

#include "model/results.h"
#include "print/rank_letters.h"
#include "text/suit_signs.h"

namespace morvane::print {
namespace {

constexpr double Part(Align align) {
  return align == Align::kLeft ? 0 : align == Align::kCentre ? 0.5 : 1;
}

void DrawCentred(Canvas& canvas, double middle, double y, std::string_view text, const Font& font,
                 Colour colour = kBlack) {
  canvas.Text(middle - canvas.WidthOf(text, font) / 2, y, text, font, colour);
}

std::string_view Sign(int suit) { return SuitSigns[static_cast<std::size_t>(suit)]; }

void Frame(Canvas& canvas, const Area& area) {
  const double right = area.X + area.Width;
  const double bottom = area.Y + area.Height;
  canvas.Rule(area.X, area.Y, right, area.Y, kBlack);
  canvas.Rule(area.X, bottom, right, bottom, kBlack);
  canvas.Rule(area.X, area.Y, area.X, bottom, kBlack);
  canvas.Rule(right, area.Y, right, bottom, kBlack);
}

constexpr double kCapitals = 0.72;  // the height of capitals and digits, of the size

Font SignsOf(const HandPlace& place) { return {Typeface::kSymbol, place.SignSize}; }
Font RanksOf(const HandPlace& place) { return {Typeface::kArial, place.RankSize}; }

/// From a sign's left end to its ranks.
double Indent(const Canvas& canvas, const HandPlace& place) {
  return canvas.WidthOf(Sign(1), SignsOf(place)) * place.SignPitch;
}

/// The rows of the table, and the order of the hands in lists.
constexpr std::array kTableHands{kNorth, kSouth, kEast, kWest};

}  // namespace

void DrawWithin(Canvas& canvas, double x, double y, double width, Align align,
                std::string_view text, const Font& font, Colour colour) {
  if (text.empty()) return;
  const double natural = canvas.WidthOf(text, font);
  if (natural <= width) {
    canvas.Text(x + (width - natural) * Part(align), y, text, font, colour);
    return;
  }
  Font smaller = font;
  smaller.Size *= width / natural;
  // Letters do not shrink quite in proportion: widths are told of whole hinted letters.
  while (canvas.WidthOf(text, smaller) > width) smaller.Size *= 0.99;
  canvas.Text(x, y + Ascent(font) - Ascent(smaller), text, smaller, colour);
}

double WidthOfHand(const Canvas& canvas, const HandPlace& place, const Board& board, int hand,
                   const PrintOptions& options) {
  double longest = 0;
  for (int suit = 1; suit <= kSuits; ++suit) {
    longest =
        std::max(longest, canvas.WidthOf(SuitOnPaper(board, hand, suit, options), RanksOf(place)));
  }
  return Indent(canvas, place) + longest;
}

void DrawHand(Canvas& canvas, const HandPlace& place, const Board& board, int hand,
              const PrintOptions& options) {
  const Font signs = SignsOf(place);
  const Font ranks = RanksOf(place);
  const double indent = Indent(canvas, place);
  for (int suit = 1; suit <= kSuits; ++suit) {
    const double y = place.Y + (suit - 1) * place.Pitch;
    const Colour colour = SuitColour(options, suit);
    canvas.Text(place.X, y, Sign(suit), signs, colour);
    DrawWithin(canvas, place.X + indent, y + Ascent(signs) - Ascent(ranks), place.Width - indent,
               Align::kLeft, SuitOnPaper(board, hand, suit, options), ranks, colour);
  }
}

void DrawCompass(Canvas& canvas, const Area& area, double size) {
  constexpr double kInside = 2;
  Frame(canvas, area);
  const Font font{Typeface::kTimes, size};
  const double middle = area.X + area.Width / 2;
  const double middleY = area.Y + (area.Height - LineHeight(font)) / 2;
  DrawCentred(canvas, middle, area.Y, "N", font);
  DrawWithin(canvas, area.X + kInside, middleY, area.Width / 2, Align::kLeft, "W", font, kBlack);
  DrawWithin(canvas, middle, middleY, area.Width / 2 - kInside, Align::kRight, "E", font, kBlack);
  DrawCentred(canvas, middle, area.Y + area.Height - LineHeight(font), "S", font);
}

void DrawPoints(Canvas& canvas, const PointsPlace& place, const Board& board) {
  const Font font{Typeface::kTimes, place.Size};
  const auto points = [&](int hand) {
    return std::to_string(board.Hcp[static_cast<std::size_t>(hand)]);
  };
  const double sides = place.Y + place.Pitch;
  const double west = place.Middle - place.Span / 2;
  DrawCentred(canvas, place.Middle, place.Y, points(kNorth), font);
  canvas.Text(west - canvas.WidthOf(points(kWest), font), sides, points(kWest), font, kBlack);
  DrawCentred(canvas, place.Middle, sides, "HCP", font);
  canvas.Text(west + place.Span, sides, points(kEast), font, kBlack);
  DrawCentred(canvas, place.Middle, sides + place.Pitch, points(kSouth), font);
}

void DrawTricks(Canvas& canvas, const TricksPlace& place, const Board& board,
                const PrintOptions& options) {
  if (!HasResults(board)) return;
  canvas.Fill({place.X, place.Y, place.Width, (kHands + 1) * place.Pitch}, kLightGrey);
  const Font letters{Typeface::kArial, place.Size};
  constexpr double kSignPart = 0.8;  // whole ones would touch each other
  const Font signs{Typeface::kSymbol, place.Size * kSignPart};
  constexpr double kHandColumn = 1.5;  // of the others, so that no hand's letter runs into a level
  const double column = place.Width / (kHandColumn + kDenominations);
  const auto middleOf = [&](int denomination) {
    return place.X + (kHandColumn + denomination + 0.5) * column;
  };
  // Letters stand in the middle of their row, as far from its top as from its bottom.
  double y = place.Y + (place.Pitch + kCapitals * place.Size) / 2 - Ascent(letters);
  DrawCentred(canvas, middleOf(0), y, "N", letters);
  for (int suit = 1; suit <= kSuits; ++suit) {
    DrawCentred(canvas, middleOf(suit), y + Ascent(letters) - Ascent(signs), Sign(suit), signs,
                SuitColour(options, suit));
  }
  for (const int hand : kTableHands) {
    y += place.Pitch;
    DrawCentred(canvas, place.X + kHandColumn * column / 2, y, std::string(1, HandLetter(hand)),
                letters);
    for (int denomination = 0; denomination < kDenominations; ++denomination) {
      const int level = board.Tricks[TricksIndex(hand, static_cast<std::size_t>(denomination))];
      if (level > 0) DrawCentred(canvas, middleOf(denomination), y, std::to_string(level), letters);
    }
  }
}

}  // namespace morvane::print
