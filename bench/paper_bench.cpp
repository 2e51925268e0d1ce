// What a PDF of the largest set costs in processor time and bytes, in every layout and as score
// cards, beside Qt painting as many empty pages.

#include <QBuffer>
#include <QGuiApplication>
#include <QPainter>
#include <QPdfWriter>
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <ctime>
#include <string>

#include "bench/dealt_set.h"
#include "bench/options.h"
#include "platform/qt/pdf_pages.h"
#include "print/document.h"

namespace {

using namespace morvane;

constexpr double kWantedSeconds = 1;
constexpr std::size_t kWantedBytes = 5'000'000;
constexpr int kRuns = 3;

/// The least processor time of some runs.
template <typename Work>
double Seconds(Work work) {
  double best = 1e9;
  for (int run = 0; run < kRuns; ++run) {
    const std::clock_t start = std::clock();
    work();
    best = std::min(best, static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC);
  }
  return best;
}

/// All boards dealt, and each hand with results of an analysis.
void FillSet(BoardSet& set) {
  constexpr int kResults = 20;
  constexpr int kLevels = 8;
  bench::DealSet(set, kMaxBoards);
  for (int n = 1; n <= kMaxBoards; ++n) {
    for (int i = 0; i < kResults; ++i) {
      set.At(n).Tricks[static_cast<std::size_t>(i)] = static_cast<std::uint8_t>((n + i) % kLevels);
    }
  }
}

/// Everything that can be chosen.
print::PrintOptions AllOn() {
  print::PrintOptions options;
  options.Header = "Club Evening";
  options.Statistics = print::PrintOptions::kStatisticsLast;
  options.PrintNS = true;
  options.To = kMaxBoards;
  return options;
}

void PaintEmptyPages(std::size_t pages) {
  QBuffer bytes;
  bytes.open(QIODevice::WriteOnly);
  QPdfWriter writer(&bytes);
  QPainter painter(&writer);
  for (std::size_t page = 1; page < pages; ++page) writer.newPage();
}

bool IsCheap(const char* name, const BoardSet& set, const print::PrintOptions& options) {
  const print::Document document(set, options);
  std::string pdf;
  const double taken = Seconds([&] {
    pdf = PdfPages(
        {"Club Evening", 1},
        [&document](Canvas& canvas) {
          static_cast<void>(document.Draw(canvas, [] { return true; }));
        },
        QPageSize(QPageSize::A4));
  });
  const std::size_t pages = document.Pages().size();
  const double empty = Seconds([pages] { PaintEmptyPages(pages); });
  const bool good = taken < kWantedSeconds && !pdf.empty() && pdf.size() < kWantedBytes;
  std::printf("  %-12s %4zu pages  %7.3f s (empty %6.3f s) %10s bytes%s\n", name, pages, taken,
              empty, bench::Grouped(static_cast<std::int64_t>(pdf.size())).c_str(),
              good ? "" : "  TOO MUCH");
  return good;
}

}  // namespace

int main(int argc, char** argv) {
  const bench::Options none(argc, argv, {});
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication application(argc, argv);
  BoardSet set;
  FillSet(set);
  std::printf(
      "640 boards as PDF, block 01 02 03 04 05 (wanted: under %.0f s of processor, %s bytes)\n",
      kWantedSeconds, bench::Grouped(kWantedBytes).c_str());
  bool good = true;
  print::PrintOptions options = AllOn();
  for (options.PerPage = 1; options.PerPage <= 4; ++options.PerPage) {
    constexpr const char* kNames[] = {"10 a page", "12 a page", "15 a page", "18 a page"};
    good = IsCheap(kNames[options.PerPage - 1], set, options) && good;
  }
  options.Mode = print::PrintMode::kScoreCards;
  good = IsCheap("score cards", set, options) && good;
  return good ? 0 : 1;
}
