#include "print/document.h"

#include <string>
#include <utility>

#include "model/statistics.h"
#include "print/hand_record_page.h"
#include "print/layout.h"
#include "print/score_card.h"
#include "print/shrunk_canvas.h"
#include "print/statistics_block.h"
#include "text/text.h"

namespace morvane::print {
namespace {

/// Sheets of as many boards as fit, in order.
std::vector<Page> RecordPages(const PrintOptions& options) {
  const int perPage = LayoutOf(options.PerPage).PerPage;
  std::vector<Page> pages;
  const Page statistics{{}, true};
  if (options.Statistics == PrintOptions::kStatisticsFirst) pages.push_back(statistics);
  for (int first = options.From; first <= options.To; first += perPage) {
    Page page;
    for (int n = first; n < first + perPage && n <= options.To; ++n) page.Boards.push_back(n);
    pages.push_back(page);
  }
  if (options.Statistics == PrintOptions::kStatisticsLast) pages.push_back(statistics);
  return pages;
}

/// Two cards a sheet; one with an even number ends it.
std::vector<Page> CardPages(const PrintOptions& options) {
  std::vector<Page> pages;
  for (int n = options.From; n <= options.To; ++n) {
    if (pages.empty() || n % 2 == 1) pages.emplace_back();
    pages.back().Boards.push_back(n);
  }
  return pages;
}

std::string BoardsText(int first, int last) {
  if (first == last) return "Board " + std::to_string(first);
  return "Boards " + std::to_string(first) + " - " + std::to_string(last);
}

}  // namespace

Document::Document(const BoardSet& set, PrintOptions options)
    : set_(set),
      options_(std::move(options)),
      pages_(options_.Mode == PrintMode::kScoreCards ? CardPages(options_)
                                                     : RecordPages(options_)) {
  options_.Header = WithoutControls(std::move(options_.Header));
}

bool Document::Draw(Canvas& page, const std::function<bool()>& boardDone) const {
  const bool cards = options_.Mode == PrintMode::kScoreCards;
  constexpr double kWidth = 555;
  ShrunkCanvas canvas(page, kWidth, cards ? 730 : 768);
  for (std::size_t i = 0; i < pages_.size(); ++i) {
    if (i > 0 && !canvas.NewPage()) return false;
    if (cards ? !DrawCards(pages_[i], canvas, boardDone) : !DrawRecords(i, canvas, boardDone)) {
      return false;
    }
  }
  return true;
}

bool Document::DrawRecords(std::size_t index, Canvas& canvas, const BoardDone& boardDone) const {
  const Page& page = pages_[index];
  const int first = page.HasStatistics ? options_.From : page.Boards.front();
  const int last = page.HasStatistics ? options_.To : page.Boards.back();
  DrawPageFrame(canvas, options_, BoardsText(first, last),
                {static_cast<int>(index) + 1, static_cast<int>(pages_.size())});
  if (page.HasStatistics) {
    DrawStatistics(canvas, options_, TotalsOf(set_, options_.From, options_.To));
  }
  DrawGrid(canvas, options_, static_cast<int>(page.Boards.size()));
  int place = 0;
  for (const int n : page.Boards) {
    DrawCell(canvas, options_, place++, set_.At(n), n);
    if (!boardDone()) return false;
  }
  return true;
}

bool Document::DrawCards(const Page& page, Canvas& canvas, const BoardDone& boardDone) const {
  for (const int n : page.Boards) {
    DrawScoreCard(canvas, options_, set_.At(n), n);
    if (!boardDone()) return false;
  }
  return true;
}

}  // namespace morvane::print
