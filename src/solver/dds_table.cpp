#include "solver/dds_table.h"

#include <dds/dll.h>

#include <array>

namespace morvane::solver {
namespace {

static_assert(DDS_HANDS == kHands && DDS_SUITS == kSuits && DDS_STRAINS == kDenominations);

/// The library has suits in our order, no-trump behind them, and a bit a rank, 2 for the two.
ddTableDeal DealOf(const Board& board) {
  constexpr int kAceBit = 14;
  ddTableDeal deal{};
  for (int card = 1; card <= kCards; ++card) {
    const int hand = board.Cards[static_cast<std::size_t>(card)] - 1;
    deal.cards[hand][CardSuit(card) - 1] |= 1U << (kAceBit + 1 - RankPosition(card));
  }
  return deal;
}

std::string WordsOf(int code) {
  std::array<char, 80> words{};  // as many as the library asks for
  ErrorMessage(code, words.data());
  return words.data();
}

/// The library's memory and threads, once. A shared library sees to them when it is loaded, one
/// that was linked in never.
void MakeReady() { [[maybe_unused]] static const bool ready = (SetMaxThreads(0), true); }

}  // namespace

Table CalcTable(const Board& board) {
  constexpr int kNoTrumpThere = 4;
  MakeReady();
  ddTableResults found{};
  const int code = CalcDDtable(DealOf(board), &found);
  if (code != RETURN_NO_FAULT) return {{}, WordsOf(code)};
  Table table;
  for (int hand = kNorth; hand <= kWest; ++hand) {
    for (int denomination = 0; denomination < kDenominations; ++denomination) {
      const int strain = denomination == 0 ? kNoTrumpThere : denomination - 1;
      table.Levels[TricksIndex(hand, static_cast<std::size_t>(denomination))] =
          LevelOfTricks(found.resTable[strain][hand - 1]);
    }
  }
  return table;
}

std::string LibraryVersion() {
  MakeReady();
  DDSInfo info{};
  GetDDSInfo(&info);
  return std::string("DDS ") + info.versionString;
}

}  // namespace morvane::solver
