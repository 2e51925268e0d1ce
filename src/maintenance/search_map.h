#pragma once

#include <optional>
#include <vector>

#include "maintenance/setup_search.h"

namespace morvane::maintenance {

/// The search of Auto Setup as a map of its grid: where it has been, where it has seen the card,
/// and about how long it can still take.
class SearchMap {
 public:
  enum class Mark { kAhead, kMissed, kHit, kLost };
  static constexpr int kColumns =
      (SetupSearch::kLastX - SetupSearch::kFirstX) / SetupSearch::kStep + 1;

  /// `search` outlives it, and has made no trial yet. `seconds` of any steady clock.
  SearchMap(const SetupSearch& search, double seconds);
  /// To be called after each trial; once the search is over it changes nothing.
  void Take(double seconds);

  [[nodiscard]] int Rows() const;
  [[nodiscard]] Mark At(int column, int row) const;
  /// The column and the row of a position; between two points of the grid it is no whole number.
  struct Place {
    double Column = 0;
    double Row = 0;
    bool operator==(const Place&) const = default;
  };
  /// Where the next trial looks, within the map.
  [[nodiscard]] Place Here() const;
  /// The row of the grid that is searched, from 0.
  [[nodiscard]] int RowNow() const;
  [[nodiscard]] int FirstY() const { return firstY_; }
  [[nodiscard]] int HitsLost() const;
  /// What the trials behind let expect of the rest of the grid; nothing before the first.
  [[nodiscard]] std::optional<double> SecondsLeft() const;

 private:
  [[nodiscard]] Mark& MarkOf(int trial) { return marks_[static_cast<std::size_t>(trial)]; }

  const SetupSearch& search_;
  const int firstY_;
  const double began_;
  double last_;
  int trials_ = 0;
  int done_ = 0;  ///< of the grid, as of the last trial
  bool over_ = false;
  std::vector<Mark> marks_;  ///< in the order of the trials
};

}  // namespace morvane::maintenance
