#include "maintenance/search_map.h"

#include <algorithm>

namespace morvane::maintenance {

SearchMap::SearchMap(const SetupSearch& search, double seconds)
    : search_(search),
      firstY_(search.At().pos_y),
      began_(seconds),
      last_(seconds),
      marks_(static_cast<std::size_t>(search.GridTrials()), Mark::kAhead) {}

/// A hit stays the same point of the grid until it is lost.
void SearchMap::Take(double seconds) {
  if (over_) return;
  Mark& tried = MarkOf(done_);
  if (search_.Refinements() > 0) {
    tried = Mark::kHit;
  } else {
    tried = tried == Mark::kHit ? Mark::kLost : Mark::kMissed;
  }
  over_ = search_.Now() != SetupSearch::State::kSearching;
  done_ = over_ ? done_ : search_.GridTrialsDone();
  last_ = seconds;
  ++trials_;
}

int SearchMap::Rows() const { return static_cast<int>(marks_.size()) / kColumns; }

SearchMap::Mark SearchMap::At(int column, int row) const {
  return marks_[static_cast<std::size_t>(row) * kColumns + static_cast<std::size_t>(column)];
}

SearchMap::Place SearchMap::Here() const {
  const SearchPosition& at = search_.At();
  const double column = static_cast<double>(at.pos_x - SetupSearch::kFirstX) / SetupSearch::kStep;
  const double row = static_cast<double>(firstY_ - at.pos_y) / SetupSearch::kStep;
  return {std::clamp(column, 0.0, kColumns - 1.0), std::clamp(row, 0.0, Rows() - 1.0)};
}

int SearchMap::RowNow() const { return done_ / kColumns; }

int SearchMap::HitsLost() const {
  return static_cast<int>(std::count(marks_.begin(), marks_.end(), Mark::kLost));
}

std::optional<double> SearchMap::SecondsLeft() const {
  if (trials_ == 0) return std::nullopt;
  const int left = over_ ? 0 : static_cast<int>(marks_.size()) - done_;
  return (last_ - began_) / trials_ * left;
}

}  // namespace morvane::maintenance
