#include "shell/refresh_statistics.h"

namespace morvane::shell {
namespace {

void CountSet(BoardSet& set, const SetTotals& totals) {
  set.CompletedBoards = static_cast<std::int16_t>(totals.CompletedBoards);
  set.ShapeCount = totals.ShapeCount;
}

void FillNumbers(StatisticsPage& page, const BoardSet& set) {
  page.FirstBoard = std::to_string(set.FirstBoard);
  page.LastBoard = std::to_string(set.LastBoard);
  page.Count = std::to_string(set.Count());
  page.Completed = std::to_string(set.CompletedBoards);
}

void FillLists(StatisticsPage& page, const SetTotals& totals) {
  page.Shapes = ShapeRows(totals);
  page.Hands = HandRows(totals);
  page.Totals = totals;
}

void FillExtremes(StatisticsPage& page, const SetTotals& totals, const AlikePair& inner) {
  page.InDeals = inner.Text();
  if (totals.CompletedBoards == 0) return;
  const CardExtremes extremes = CardExtremesOf(totals);
  page.MaxFreq = FrequencyText(extremes.Most, totals.CompletedBoards);
  page.MinFreq = FrequencyText(extremes.Least, totals.CompletedBoards);
}

}  // namespace

void RefreshStatistics(Program& program, StatisticsView& view) {
  const Hourglass hourglass(program.Operator);
  BoardSet& set = program.Set;
  StatisticsPage page;
  set.ShapeCount.fill(0);
  view.ShowStatistics(page);
  program.Loop.Pump();  // the old figures are seen to go
  CountSet(set, {});
  if (!set.Exists()) return;

  const SetTotals totals = TotalsOf(set, set.FirstBoard, set.LastBoard);
  CountSet(set, totals);
  FillNumbers(page, set);
  if (program.ShowStatistics) FillLists(page, totals);
  view.ShowStatistics(page);
  program.Loop.Pump();
  const AlikePair inner = InnerSimilarity(set);
  if (program.ShowStatistics) FillExtremes(page, totals, inner);
  view.ShowStatistics(page);
}

}  // namespace morvane::shell
