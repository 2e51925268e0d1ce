// The statistics of the largest set: how long the whole of RefreshStatistics takes, and how fast
// the most alike pair is found beside the loop over all pairs and cards.

#include <algorithm>
#include <cstdio>
#include <random>

#include "bench/timing.h"
#include "generate/number_dealer.h"
#include "shell/refresh_statistics.h"
#include "support/fakes.h"

namespace {

using namespace morvane;
using bench::Milliseconds;

constexpr double kWantedMs = 10;
constexpr double kWantedFactor = 5;
constexpr int kRuns = 15;

/// The definition of the likeness of two boards: 52 steps.
Similarity ByCounting(const Board& a, const Board& b) {
  std::array<int, 16> counters{};
  for (std::size_t card = 1; card <= kCards; ++card) {
    const unsigned inA = a.Cards[card];
    const unsigned inB = b.Cards[card];
    if (inA < 1 || inA > 4 || inB < 1 || inB > 4) continue;
    ++counters[(inA - 1) * 4 + inB - 1];
  }
  const auto most = std::max_element(counters.begin(), counters.end());
  const auto at = static_cast<int>(most - counters.begin());
  return {*most, HandLetter(at / 4 + 1), HandLetter(at % 4 + 1)};
}

AlikePair PairByCounting(const BoardSet& set) {
  AlikePair best;
  for (int i = set.FirstBoard + 1; i <= set.LastBoard; ++i) {
    for (int j = set.FirstBoard; j < i; ++j) {
      const Similarity pair = ByCounting(set.At(i), set.At(j));
      if (pair.Cards > best.Cards) best = {pair.Cards, i, pair.HandA, j, pair.HandB};
    }
  }
  return best;
}

void FillSet(BoardSet& set) {
  generate::NumberDealer dealer;
  dealer.Seedo = {1, 2, 3, 4, 5};
  set.FirstBoard = 1;
  set.LastBoard = kMaxBoards;
  for (int n = 1; n <= kMaxBoards; ++n) {
    Board board;
    dealer.NextNumberDeal(board);
    set.At(n) = NumberedBoard(n, board);
  }
}

/// Takes the texts as the main window does.
class View final : public shell::StatisticsView {
 public:
  void ShowStatistics(const shell::StatisticsPage& page) override { Page = page; }
  shell::StatisticsPage Page;
};

bool RefreshIsQuick(test::TestDesk& desk) {
  desk.Prog.ShowStatistics = true;
  View view;
  const double taken = Milliseconds(kRuns, [&] { shell::RefreshStatistics(desk.Prog, view); });
  std::printf("RefreshStatistics of %s boards, shapes listed %zu, most alike %s:\n",
              view.Page.Completed.c_str(), view.Page.Shapes.size(), view.Page.InDeals.c_str());
  std::printf("  %8.3f ms (wanted: under %.0f ms)\n", taken, kWantedMs);
  return taken < kWantedMs;
}

bool PairIsFoundFaster(const BoardSet& set) {
  AlikePair counted;
  AlikePair found;
  const double counting = Milliseconds(3, [&] { counted = PairByCounting(set); });
  const double taken = Milliseconds(kRuns, [&] { found = InnerSimilarity(set); });
  const bool right = counted == found;
  std::printf("The most alike pair of hands:\n  %-24s %8.3f ms\n", "counting, 52 steps", counting);
  std::printf("  %-24s %8.3f ms  %6.1f times faster%s (wanted: at least %.0f times)\n",
              "InnerSimilarity", taken, counting / taken, right ? "" : "  WRONG", kWantedFactor);
  return right && counting >= kWantedFactor * taken;
}

}  // namespace

int main() {
  test::TestDesk desk;
  FillSet(desk.Prog.Set);
  std::printf("Number dealer, block 01 02 03 04 05\n");
  const bool quick = RefreshIsQuick(desk);
  const bool faster = PairIsFoundFaster(desk.Prog.Set);
  return quick && faster ? 0 : 1;
}
