#include "maintenance/setup_search.h"

#include <algorithm>
#include <cmath>

namespace morvane::maintenance {
namespace {

using wire::CardIndex;

constexpr int kLowestRow = 20;
constexpr int kRefinements = 3;
/// By `CardIndex`.
constexpr std::array<int, 3> kFirstY{110, 22, 130};
/// A refined position is held below it; the jumbo index has one row and stays in it.
constexpr std::array<int, 3> kHighestY{113, 22, 137};
/// By refinements done.
constexpr std::array<int, kRefinements + 1> kRefinedProgress{0, 90, 95, 100};
// Where the symbol belongs in the picture.
constexpr int kTopOfSymbol = 20;
constexpr int kQuarterOfSymbol = 64;

template <typename T>
T Of(const std::array<T, 3>& table, CardIndex index) {
  return table[static_cast<std::size_t>(index)];
}

bool IsTenOfSpades(const wire::VerdictReply& verdict) {
  return verdict.Rank == 10 && verdict.Suit == 1 && verdict.Error == 0;
}

/// As a whole number, rounded down.
int Part(int numerator, int denominator) {
  return static_cast<int>(std::floor(static_cast<double>(numerator) / denominator));
}

}  // namespace

SetupSearch::SetupSearch(CardIndex index) : index_(index) { at_.pos_y = Of(kFirstY, index); }

void SetupSearch::Take(const TrialAnswer& answer) {
  answer_ = answer;
  if (IsTenOfSpades(answer.Verdict)) {
    if (refinements_ == 0) hit_ = at_;
    Refine();
    ++refinements_;
    progress_ = kRefinedProgress[static_cast<std::size_t>(refinements_)];
    over_ = refinements_ == kRefinements;
    return;
  }
  if (refinements_ > 0) at_ = hit_;
  refinements_ = 0;
  NextPoint();
}

void SetupSearch::Refine() {
  const wire::SymbolFrame& symbol = answer_.Symbol;
  if (index_ != CardIndex::Jumbo) {
    at_.pos_y += kTopOfSymbol - symbol.YMin;
    if (at_.pos_y < 23) at_.pos_y = 22;
    at_.pos_y = std::min(at_.pos_y, Of(kHighestY, index_));
  }
  const int quarter = Part(symbol.XMax - symbol.XMin, 4) + symbol.XMin;
  at_.pos_x = std::max(at_.pos_x + kQuarterOfSymbol - quarter, 1);
  at_.start_y = Part(2 * (symbol.YMax - symbol.YMin), 3) + symbol.YMin;
}

void SetupSearch::NextPoint() {
  if (at_.pos_x >= kLastX) {
    NextRow();
  } else {
    at_.pos_x += kStep;
  }
  if (over_) {
    progress_ = 100;
    return;
  }
  const double done = (at_.pos_x - kFirstX + 220.0 * rowCount_) / 48;
  progress_ = std::clamp(static_cast<int>(std::nearbyint(done)), 0, 100);
}

void SetupSearch::NextRow() {
  over_ = index_ == CardIndex::Jumbo;
  if (over_) return;
  at_.pos_x = kFirstX;
  over_ = at_.pos_y >= kLastX || at_.pos_y <= kLowestRow;
  if (over_) return;
  at_.pos_y -= kStep;
  over_ = at_.pos_y < kLowestRow;
  ++rowCount_;
}

/// The end is told from where it is: required.
SetupSearch::State SetupSearch::Now() const {
  if (!over_) return State::kSearching;
  const bool beyond = at_.pos_x >= kLastX || at_.pos_y <= kLowestRow;
  return beyond ? State::kNotFound : State::kFound;
}

int SetupSearch::GridTrials() const {
  const int rows = index_ == CardIndex::Jumbo ? 1 : (Of(kFirstY, index_) - kLowestRow) / kStep + 1;
  return rows * ((kLastX - kFirstX) / kStep + 1);
}

int SetupSearch::GridTrialsDone() const {
  const SearchPosition& grid = refinements_ > 0 ? hit_ : at_;
  return rowCount_ * ((kLastX - kFirstX) / kStep + 1) + (grid.pos_x - kFirstX) / kStep;
}

}  // namespace morvane::maintenance
