// The hot path of the rejection tests: how fast a candidate is held against a full history, beside
// counting card by card, and how long a whole set takes.

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <random>
#include <vector>

#include "bench/timing.h"
#include "generate/generate_set.h"
#include "generate/seeds.h"
#include "history/history_ring.h"
#include "model/similarity.h"
#include "support/counted_similarity.h"
#include "support/fakes.h"

namespace {

using namespace morvane;
using bench::Milliseconds;

constexpr int kBoards = 20000;
constexpr double kWantedFactor = 5;
constexpr double kWantedSeconds = 1;
constexpr int kRuns = 15;

std::vector<Board> RandomDeals(int count) {
  generate::NumberDealer dealer;
  dealer.Seedo = {1, 2, 3, 4, 5};
  std::vector<Board> deals(static_cast<std::size_t>(count));
  for (Board& deal : deals) {
    dealer.NextNumberDeal(deal);
    AnalyzeBoard(deal);
  }
  return deals;
}

/// Whether the best method is as much faster as it has to be.
bool CompareMethods(const std::vector<Board>& deals) {
  const Board candidate = deals.back();
  const std::span<const Board> boards = std::span(deals).first(kBoards);
  std::vector<HandMasks> masks;
  for (const Board& board : boards) masks.push_back(MasksOf(board));

  int most = 0;
  const double counting = Milliseconds(kRuns, [&] {
    most = 0;
    for (const Board& board : boards)
      most = std::max(most, test::CountedSimilarity(candidate, board).Cards);
  });
  const auto isMost = [&](const Board& board) {
    return test::CountedSimilarity(candidate, board).Cards == most;
  };
  const auto firstMost =
      static_cast<std::size_t>(std::find_if(boards.begin(), boards.end(), isMost) - boards.begin());
  std::printf("A candidate against %d boards:\n", kBoards);
  std::printf("  %-24s %8.3f ms\n", "counting, 52 steps", counting);
  double factor = 0;
  for (const SimilarityMethod& method : SimilarityMethods()) {
    bool right = true;
    const double taken = Milliseconds(kRuns, [&] {
      right = method.FirstMoreAlike(MasksOf(candidate), masks, most) == masks.size() && right;
    });
    right = right && method.FirstMoreAlike(MasksOf(candidate), masks, most - 1) == firstMost;
    factor = counting / taken;
    std::printf("  %-24s %8.3f ms  %6.1f times faster%s\n", method.Name, taken, factor,
                right ? "" : "  WRONG");
    if (!right) return false;
  }
  std::printf("  wanted of the last: at least %.0f times\n", kWantedFactor);
  return factor >= kWantedFactor;
}

/// A history whose 20,000 positions are all in use.
void FillHistory(test::TestDesk& desk, const std::vector<Board>& deals) {
  constexpr int kOfEntry = 32;
  std::size_t next = 0;
  auto& ring = desk.History;
  while (ring.Ring().HistoryUsed() < history::kRingSize) {
    desk.Prog.Set.FirstBoard = 1;
    desk.Prog.Set.LastBoard = kOfEntry;
    for (int n = 1; n <= kOfEntry; ++n) {
      desk.Prog.Set.At(n) = deals[next++ % deals.size()];
      desk.Prog.Set.At(n).Number = static_cast<std::int16_t>(n);
    }
    ring.AddToHistory(desk.Prog, "Evening " + std::to_string(next));
  }
}

class NoView final : public generate::GenerateView {
 public:
  void RunStarts() override {}
  void BoardsGen(int /*count*/) override {}
};

bool GenerateAgainstFullRing(const std::vector<Board>& deals) {
  test::TestDesk desk;
  desk.History.LoadHistory(desk.Prog);
  FillHistory(desk, deals);
  generate::Generator generator(desk.Prog);
  generator.Number.Seedo = {9, 8, 7, 6, 5};
  NoView view;
  const auto start = std::chrono::steady_clock::now();
  const auto result = generate::GenerateSet(
      desk.Prog, generator, desk.History.Ring(),
      {"1", "640", true, generate::DealGenerator::kNumber, {true, true, true}}, view);
  const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
  const int rejected = result.ShpRejects ? result.ShpRejects->Count : 0;
  std::printf(
      "640 boards with all three tests, %d positions of history in use:\n"
      "  %.3f s, logged; %d shapes rejected, most alike %s of %s (wanted: under %.0f s)\n",
      desk.History.Ring().HistoryUsed(), taken.count(), rejected, result.OuSim.value_or("").c_str(),
      result.OuDeals.value_or("").c_str(), kWantedSeconds);
  return result.End == generate::GenerateEnd::kDone && taken.count() < kWantedSeconds;
}

}  // namespace

int main() {
  const std::vector<Board> deals = RandomDeals(kBoards + 1);
  const bool fast = CompareMethods(deals);
  const bool quick = GenerateAgainstFullRing(deals);
  return fast && quick ? 0 : 1;
}
