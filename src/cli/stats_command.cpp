#include "cli/stats_command.h"

#include <array>

#include "model/statistics_bars.h"
#include "shell/refresh_statistics.h"
#include "text/columns.h"
#include "text/text.h"

namespace morvane::cli {
namespace {

using shell::StatisticsPage;

constexpr std::array kOperands{Operand{"IN", "the set to count"}};
constexpr std::array kOptions{kImportOption};

constexpr std::size_t kNameWidth = 18;
constexpr std::size_t kHandWidth = 7;
constexpr std::size_t kShapeWidth = 6;
constexpr std::size_t kCountWidth = 11;

/// What the main window would show.
class LastPage final : public shell::StatisticsView {
 public:
  void ShowStatistics(const StatisticsPage& page) override { Page = page; }
  StatisticsPage Page;
};

std::string NamedLine(const std::string& name, const std::string& value) {
  return value.empty() ? name + "\n" : LeftAligned(name, kNameWidth) + value + "\n";
}

std::string NumbersText(const StatisticsPage& page) {
  return NamedLine("First Board:", page.FirstBoard) + NamedLine("Last Board:", page.LastBoard) +
         NamedLine("Boards in Set:", page.Count) + NamedLine("Completed Boards:", page.Completed);
}

std::string HandsText(const std::vector<HandRow>& rows) {
  std::string text = LeftAligned("Hand:", kNameWidth);
  for (const auto column : HandRow::kColumns) text += RightAligned(std::string(column), kHandWidth);
  text += "\n";
  for (const HandRow& row : rows) {
    std::string cells;
    for (const std::string& cell : row.Cells) {
      if (!cell.empty()) cells += RightAligned(cell, kHandWidth);
    }
    text += NamedLine(row.Name, cells);
  }
  return text;
}

std::string CountsLine(const std::string& name, const std::string& actual,
                       const std::string& expected, const std::string& difference = "") {
  return LeftAligned(name, kShapeWidth) + RightAligned(actual, kCountWidth) +
         RightAligned(expected, kCountWidth) +
         (difference.empty() ? "" : RightAligned(difference, kCountWidth)) + "\n";
}

std::string ShapesText(const std::vector<ShapeRow>& rows) {
  std::string text = CountsLine("Shape", "Actual", "Expected", "Diffrence");
  for (const ShapeRow& row : rows) {
    text += CountsLine(row.Shape, row.Actual, row.Expected, row.Difference);
  }
  return text;
}

std::string PointsText(const SetTotals& totals) {
  std::string text = CountsLine("HCP", "Actual", "Expected");
  for (const CountBar& bar : PointBars(totals)) {
    text += CountsLine(bar.Name, std::to_string(bar.Actual), FixedPoint(bar.Expected, 1));
  }
  return text;
}

std::string ExtremesText(const StatisticsPage& page) {
  return NamedLine("Max frequency:", page.MaxFreq) + NamedLine("Min frequency:", page.MinFreq) +
         NamedLine("Inner Similarity:", page.InDeals);
}

}  // namespace

StatsOptions ReadStatsOptions(OptionReader& given) {
  return {.In = given.Path(0), .Import = given.Has("import")};
}

ExitStatus Stats(Job& job, const StatsOptions& options) {
  if (!Load(job, options.In, options.Import)) return kFailed;
  job.Place.Prog.ShowStatistics = true;
  LastPage view;
  shell::RefreshStatistics(job.Place.Prog, view);
  const StatisticsPage& page = view.Page;
  job.Place.Screen.Out(NumbersText(page) + "\n" + HandsText(page.Hands) + "\n" +
                       ShapesText(page.Shapes) + "\n" + PointsText(page.Totals) + "\n" +
                       ExtremesText(page));
  return kDone;
}

constinit const Command kStatsCommand{
    .Name = "stats",
    .Operands = kOperands,
    .Options = kOptions,
    .Summary = "Prints the statistics of a set: hands, shapes and points beside what is expected.",
    .Prepare = TaskOf<ReadStatsOptions, Stats>};

}  // namespace morvane::cli
