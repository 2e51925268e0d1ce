#pragma once

#include <array>
#include <cstdint>

#include "wire/parameters.h"
#include "wire/picture_replies.h"

namespace morvane::maintenance {

/// Where a trial looks: the camera's position, and the start point in its picture.
struct SearchPosition {
  int pos_x = 20;
  int pos_y = 110;
  int start_x = 66;
  int start_y = 60;
  bool operator==(const SearchPosition&) const = default;
};

/// What a trial has seen.
struct TrialAnswer {
  wire::VerdictReply Verdict;
  wire::SymbolFrame Symbol;
  wire::SymbolFrame Suit;
};

/// The search of Auto Setup: over a grid of positions, row by row, until the ten of spades is seen;
/// then it is brought to its place in the picture in three rounds, in each of which it must be seen
/// again.
class SetupSearch {
 public:
  enum class State { kSearching, kFound, kNotFound };
  // The grid.
  static constexpr int kFirstX = 20;
  static constexpr int kLastX = 240;
  static constexpr int kStep = 10;  ///< of both coordinates

  explicit SetupSearch(wire::CardIndex index);

  /// Where the next trial looks, or, at the end, what was found.
  [[nodiscard]] const SearchPosition& At() const { return at_; }
  void Take(const TrialAnswer& answer);

  [[nodiscard]] State Now() const;
  [[nodiscard]] int Progress() const { return progress_; }  ///< 0..100
  /// How often the card has been brought nearer to its place since it was hit, 0..3.
  [[nodiscard]] int Refinements() const { return refinements_; }
  [[nodiscard]] const TrialAnswer& LastAnswer() const { return answer_; }
  /// The most trials that the grid alone can need, and how many are behind.
  [[nodiscard]] int GridTrials() const;
  [[nodiscard]] int GridTrialsDone() const;

 private:
  void Refine();
  void NextPoint();
  void NextRow();

  wire::CardIndex index_;
  SearchPosition at_;
  SearchPosition hit_;  ///< to which a lost hit goes back
  TrialAnswer answer_;
  int refinements_ = 0;
  int rowCount_ = 0;
  int progress_ = 0;
  bool over_ = false;
};

}  // namespace morvane::maintenance
