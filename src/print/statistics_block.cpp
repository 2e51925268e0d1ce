#include "print/statistics_block.h"

#include <array>

#include "model/statistics_text.h"
#include "print/board_parts.h"
#include "print/layout.h"
#include "text/text.h"

namespace morvane::print {
namespace {

constexpr double kTitleRule = 480;
constexpr double kGridFrom = 504;
constexpr double kLabelX = 10;
constexpr double kRightOfLabels = 0.32;  // of the page's width
constexpr double kColumn = 0.11;         // of the page's width
constexpr Font kTitle{Typeface::kTimes, 12, true};

/// At a part of the height below the title.
struct Line {
  double At;
  std::string_view Label;
};
constexpr Line kHeads{0.2, "Hand: "};
constexpr std::array<Line, 5> kLines{{{0.3, "Average HCP:  "},
                                      {0.37, "Balanced: "},
                                      {0.44, "Voids:          "},
                                      {0.51, "Singletons:     "},
                                      {0.58, "Long suits (7+):"}}};
constexpr std::array kRules{0.19, 0.28, 0.67};

}  // namespace

void DrawStatistics(Canvas& canvas, const PrintOptions& options, const SetTotals& totals) {
  const double width = canvas.Width();
  const auto yOf = [&](double part) { return kGridFrom + (canvas.Height() - kGridFrom) * part; };
  canvas.Rule(0, kTitleRule, width, kTitleRule, kBlack);
  canvas.Rule(0, kGridFrom, width, kGridFrom, kBlack);
  canvas.Text(kLabelX, (kTitleRule + kGridFrom - LineHeight(kTitle)) / 2,
              "Hands Statistics: ", kTitle, HeadColour(options));
  for (const double part : kRules) canvas.Rule(0, yOf(part), width, yOf(part), kBlack);
  const double labels = kRightOfLabels * width;
  canvas.Rule(labels, yOf(kRules.front()), labels, yOf(kRules.back()), kBlack);

  const Font font{Typeface::kArial, LayoutOf(options.PerPage).TableSize};
  const auto row = [&](const Line& line, const auto& cells) {
    canvas.Text(kLabelX, yOf(line.At), line.Label, font, kBlack);
    for (std::size_t i = 0; i < cells.size(); ++i) {
      DrawWithin(canvas, labels + static_cast<double>(i) * kColumn * width, yOf(line.At),
                 kColumn * width, Align::kCentre, Trim(cells[i]), font, kBlack);
    }
  };
  row(kHeads, HandRow::kColumns);
  const std::vector<HandRow> rows = HandRows(totals);
  for (std::size_t i = 0; i < kLines.size(); ++i) row(kLines[i], rows[i].Cells);
}

}  // namespace morvane::print
