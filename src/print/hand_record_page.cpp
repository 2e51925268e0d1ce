#include "print/hand_record_page.h"

#include <algorithm>
#include <string>

#include "model/results.h"
#include "print/board_parts.h"
#include "print/layout.h"

namespace morvane::print {
namespace {

constexpr double kUpperRule = 10;
constexpr double kLowerRule = 34;
constexpr double kHeaderTop = 50;
constexpr double kCellsFrom = 76;  // the header's letters end above
constexpr double kCellsX = 10;
constexpr double kGap = 6;          // between what stands in neighbouring cells
constexpr double kBlankOfLine = 1;  // a line has more room above its letters than below
constexpr Colour kPale{0xB0, 0xB0, 0xB0};
constexpr Font kText{Typeface::kTimes, 10};
constexpr Font kBoardNumber{Typeface::kTimes, 12, true};
constexpr Font kHeader{Typeface::kTimes, 20, true};

/// Measures of a cell, in points from its upper left corner.
struct Cell {
  double X = 0;
  double Y = 0;
  double Width = 0;  ///< without the gap to the next one
  double Height = 0;
  const Layout& Form;

  [[nodiscard]] double LinePitch() const {
    constexpr int kLines = 3 * kSuits;
    return std::min(Form.LinePitch * LineHeight(kText), (Height - kGap / 2) / kLines);
  }
  /// Where there is room, the hands keep off the rule above.
  [[nodiscard]] double HandTop(int row) const {
    const double room = Height - 3 * kSuits * LinePitch();
    constexpr double kAbove = 1.0 / 3;  // the tails of the last line need the rest
    return Y + std::min(room * kAbove, kGap) + row * kSuits * LinePitch();
  }
  [[nodiscard]] Area Compass() const {
    constexpr double kFifths = 5;
    const double width = Form.CompassWidth / kFifths;
    const double height = std::min(Form.CompassHeight / kFifths, kSuits * LinePitch() - kGap);
    constexpr double kThousand = 1000;
    return {X + Form.CompassAt / kThousand * Width - width / 2,
            HandTop(1) + (kSuits * LinePitch() - height) / 2 + kBlankOfLine, width, height};
  }
  /// Of what stands below West and East.
  [[nodiscard]] double PointsTop() const { return HandTop(2) + kBlankOfLine; }
  /// Below East where there is room; its rows may stand closer, down to a limit.
  [[nodiscard]] TricksPlace Table() const {
    constexpr int kTableRows = kHands + 1;
    constexpr double kClosest = 0.77;
    const double line = LineHeight({Typeface::kArial, Form.TableSize});
    const double bottom = Y + Height - kGap / 2;
    const double below = HandTop(0) + Form.TableTop * (HandTop(2) + kGap / 2 - HandTop(0));
    const double pitch =
        std::clamp((bottom - below) / kTableRows, kClosest * line, Form.TablePitch * line);
    const double left = Form.TableFrom * Width;
    return {X + left, std::min(below, bottom - kTableRows * pitch), Width - left, pitch,
            Form.TableSize};
  }
};

Cell CellAt(const Canvas& canvas, const Layout& form, int place) {
  const double width = (canvas.Width() - kCellsX) / form.Columns;
  const double height = (canvas.Height() - kCellsFrom) / form.Rows;
  const int row = place / form.Columns;
  const int column = place % form.Columns;
  return {kCellsX + column * width, kCellsFrom + row * height, width - kGap, height, form};
}

void DrawHead(Canvas& canvas, const PrintOptions& options, const Cell& cell, int n) {
  const double width = cell.Compass().X - kGap - cell.X;
  const Colour colour = HeadColour(options);
  double y = cell.HandTop(0);
  DrawWithin(canvas, cell.X, y, width, Align::kLeft, "Board: " + std::to_string(n), kBoardNumber,
             colour);
  y += LineHeight(kBoardNumber);
  DrawWithin(canvas, cell.X, y, width, Align::kLeft,
             std::string("Dealer: ") + HandLetter(DealerOfNumber(n)), kText, colour);
  y += LineHeight(kText);
  DrawWithin(canvas, cell.X, y, width, Align::kLeft,
             std::string(VulNameLong[static_cast<std::size_t>(VulOfNumber(n))]) + " Vul", kText,
             colour);
}

void DrawHands(Canvas& canvas, const PrintOptions& options, const Cell& cell, const Board& board) {
  const Area compass = cell.Compass();
  const double right = cell.X + cell.Width;
  const double east = compass.X + compass.Width + kGap;
  const bool hasTable = options.Analysis && HasResults(board);
  const TricksPlace table = cell.Table();
  const auto endOf = [&](int row) {
    return hasTable && table.Y < cell.HandTop(row + 1) ? table.X - kGap / 2 : right;
  };
  const auto placeOf = [&](double x, double end, int row) {
    return HandPlace{x,          cell.HandTop(row), end - x, cell.LinePitch(), cell.Form.SignPitch,
                     kText.Size, kText.Size};
  };
  const auto draw = [&](int hand, double x, double end, int row) {
    DrawHand(canvas, placeOf(x, end, row), board, hand, options);
  };
  draw(kNorth, compass.X, right, 0);
  // West moves to the left before long suits shrink.
  const double westEnd = compass.X - kGap / 2;
  const double needed = WidthOfHand(canvas, placeOf(cell.X, westEnd, 1), board, kWest, options);
  draw(kWest, std::clamp(westEnd - needed, cell.X, cell.X + cell.Form.WestFrom), westEnd, 1);
  draw(kEast, east, endOf(1), 1);
  draw(kSouth, compass.X, endOf(2), 2);
}

}  // namespace

void DrawPageFrame(Canvas& canvas, const PrintOptions& options, std::string_view what,
                   SheetNumber number) {
  const double width = canvas.Width();
  const double y = (kUpperRule + kLowerRule - LineHeight(kText)) / 2;
  canvas.Rule(0, kUpperRule, width, kUpperRule, kBlack);
  canvas.Rule(0, kLowerRule, width, kLowerRule, kBlack);
  DrawWithin(canvas, kCellsX, y, width / 2 - kCellsX, Align::kLeft, what, kText, kBlack);
  DrawWithin(canvas, width / 2, y, width / 2 - kCellsX, Align::kRight,
             "Page " + std::to_string(number.Page) + " of " + std::to_string(number.Pages), kText,
             kBlack);
  DrawWithin(canvas, kCellsX, kHeaderTop, width - 2 * kCellsX, Align::kCentre, options.Header,
             kHeader, HeadColour(options));
}

void DrawGrid(Canvas& canvas, const PrintOptions& options, int boards) {
  const Layout& form = LayoutOf(options.PerPage);
  const int rows = (boards + form.Columns - 1) / form.Columns;
  const double right = canvas.Width() - kGap;
  for (int row = 1; row < rows; ++row) {
    const double y = CellAt(canvas, form, row * form.Columns).Y;
    canvas.Rule(kCellsX, y, right, y, kPale);
  }
}

void DrawCell(Canvas& canvas, const PrintOptions& options, int place, const Board& board, int n) {
  const Layout& form = LayoutOf(options.PerPage);
  const Cell cell = CellAt(canvas, form, place);
  DrawHead(canvas, options, cell, n);
  DrawHands(canvas, options, cell, board);
  const Area compass = cell.Compass();
  DrawCompass(canvas, compass, kText.Size);
  if (options.Hcp) {
    const double span = form.PointsSpan * form.TableSize;
    DrawPoints(canvas,
               {cell.X + (compass.X - kGap - cell.X) / 2, cell.PointsTop(),
                form.PointsPitch * LineHeight(kText), span, kText.Size},
               board);
  }
  if (options.Analysis) DrawTricks(canvas, cell.Table(), board, options);
}

}  // namespace morvane::print
