#include "print/score_card.h"

#include <array>
#include <string>
#include <string_view>

#include "model/results.h"
#include "print/board_parts.h"

namespace morvane::print {
namespace {

// Two cards stand side by side; the rest of what is told in points is within a card.
constexpr double kLeftCard = 15;
constexpr double kRightCard = 300;
constexpr double kCardWidth = 255;  // with room for the scissors between two

constexpr double kHeadTop = 34;
constexpr Font kHead{Typeface::kTimes, 14};
constexpr Font kBoardNumber{Typeface::kTimes, 20};

constexpr std::array<double, 3> kHandTops{77, 147, 217};  // North; West and East; South
constexpr double kSuitPitch = 16;
constexpr Area kCompass{98, 155, 50, 50};
constexpr double kGap = 6;
constexpr TricksPlace kTricks{177, 218, 78, 13, 10};
constexpr PointsPlace kPoints{46, 224, 15, 34, 12};

constexpr double kTableTop = 300;
constexpr double kHeaderHeight = 30;
constexpr double kRowHeight = 25;
constexpr int kLines = 16;  // with the header the rows are 17
constexpr Font kColumnHeader{Typeface::kTimes, 10};
constexpr Font kPairNumber{Typeface::kTimes, 16};

struct Column {
  std::string_view Upper;
  std::string_view Lower;
  double Width;
};
constexpr std::array<Column, 8> kColumns{{{"NS", "Pair", 30},
                                          {"EW", "Pair", 26},
                                          {"Contract", "", 39},
                                          {"Declarer", "", 39},
                                          {"Tricks", "Made", 30},
                                          {"NS", "Score", 30},
                                          {"EW", "Score", 30},
                                          {"Match", "Points", 31}}};

double TopOfLine(int line) { return kTableTop + kHeaderHeight + line * kRowHeight; }

// `left` is the left edge of the card.

void DrawHead(Canvas& canvas, double left, Colour colour, int n) {
  const double dealer = left + 0.31 * kCardWidth;
  const double vul = left + 0.63 * kCardWidth;
  const double y = kHeadTop + Ascent(kBoardNumber) - Ascent(kHead);
  const double number = left + canvas.WidthOf("Board ", kHead);
  canvas.Text(left, y, "Board", kHead, colour);
  DrawWithin(canvas, number, kHeadTop, dealer - number, Align::kLeft, std::to_string(n),
             kBoardNumber, colour);
  DrawWithin(canvas, dealer, y, vul - dealer, Align::kCentre,
             std::string("Dealer: ") + HandLetter(DealerOfNumber(n)), kHead, colour);
  DrawWithin(canvas, vul, y, left + kCardWidth - vul, Align::kRight,
             "Vul:     " + std::string(VulNameLong[static_cast<std::size_t>(VulOfNumber(n))]),
             kHead, colour);
}

void DrawHands(Canvas& canvas, const PrintOptions& options, double left, const Board& board) {
  const bool hasTable = options.Analysis && HasResults(board);
  const double east = kCompass.X + kCompass.Width + kGap;
  const auto draw = [&](int hand, double from, double to, double y) {
    constexpr double kSignPitch = 1.25;
    constexpr double kSignSize = 14;
    constexpr double kRankSize = 12;
    DrawHand(canvas, {left + from, y, to - from, kSuitPitch, kSignPitch, kSignSize, kRankSize},
             board, hand, options);
  };
  draw(kNorth, kCompass.X, kCardWidth, kHandTops[0]);
  draw(kWest, 0, kCompass.X - kGap, kHandTops[1]);
  draw(kEast, east, kCardWidth, kHandTops[1]);
  draw(kSouth, kCompass.X, hasTable ? kTricks.X - kGap : kCardWidth, kHandTops[2]);
}

void DrawDiagram(Canvas& canvas, const PrintOptions& options, double left, const Board& board) {
  DrawHands(canvas, options, left, board);
  Area compass = kCompass;
  compass.X += left;
  DrawCompass(canvas, compass, kColumnHeader.Size);
  if (options.Hcp) {
    PointsPlace points = kPoints;
    points.Middle += left;
    DrawPoints(canvas, points, board);
  }
  if (options.Analysis) {
    TricksPlace tricks = kTricks;
    tricks.X += left;
    DrawTricks(canvas, tricks, board, options);
  }
}

void DrawColumnHeader(Canvas& canvas, const Column& column, double x) {
  const double line = LineHeight(kColumnHeader);
  const int lines = column.Lower.empty() ? 1 : 2;
  const double y = kTableTop + (kHeaderHeight - lines * line) / 2;
  DrawWithin(canvas, x, y, column.Width, Align::kCentre, column.Upper, kColumnHeader, kBlack);
  DrawWithin(canvas, x, y + line, column.Width, Align::kCentre, column.Lower, kColumnHeader,
             kBlack);
}

/// The frame, a rule above and below each row, and what stands above the columns.
void DrawTable(Canvas& canvas, double left) {
  const double bottom = TopOfLine(kLines);
  const auto levelRule = [&](double y) { canvas.Rule(left, y, left + kCardWidth, y, kBlack); };
  levelRule(kTableTop);
  for (int line = 0; line <= kLines; ++line) levelRule(TopOfLine(line));
  double x = left;
  canvas.Rule(x, kTableTop, x, bottom, kBlack);
  for (const Column& column : kColumns) {
    DrawColumnHeader(canvas, column, x);
    x += column.Width;
    canvas.Rule(x, kTableTop, x, bottom, kBlack);
  }
}

/// The numbers of the pairs in the first column, their last digits below each other.
void DrawPairs(Canvas& canvas, const PrintOptions& options, double left) {
  constexpr double kBesideRule = 3;
  const double width = kColumns.front().Width - 2 * kBesideRule;
  for (int line = 0; line < kLines; ++line) {
    DrawWithin(canvas, left + kBesideRule,
               TopOfLine(line) + (kRowHeight - LineHeight(kPairNumber)) / 2, width, Align::kRight,
               std::to_string(options.NsOffset + line), kPairNumber, kBlack);
  }
}

}  // namespace

void DrawScoreCard(Canvas& canvas, const PrintOptions& options, const Board& board, int n) {
  const double left = n % 2 == 1 ? kLeftCard : kRightCard;
  DrawHead(canvas, left, HeadColour(options), n);
  if (options.PrintBoards) DrawDiagram(canvas, options, left, board);
  DrawTable(canvas, left);
  if (options.PrintNS) DrawPairs(canvas, options, left);
}

}  // namespace morvane::print
