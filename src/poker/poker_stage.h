#pragma once

#include <array>

namespace morvane::poker {

/// Where the operator stands in the four runs that stack a deal.
struct PokerStage {
  /// What is to be done, or is being done.
  enum class Task {
    kNothing,  ///< no order yet
    kDeal,     ///< the next run of the four
    kRead,
  };
  Task What = Task::kNothing;
  int Done = 0;          ///< runs of the deal that are finished, 0..4
  bool Running = false;  ///< run `Done` + 1, or the reading, is under way
  int Fallen = 0;        ///< cards of this run, as the machine reports them
  int Count = 0;         ///< cards that the run is to have: 52, 28 or 27
  double Seconds = 0;    ///< how long it takes so far
  /// Between two runs: the piles that go back into the feeder, the top one first, [0] East, then
  /// West, then South; how many cards each has. All 0 where nothing is to be carried.
  std::array<int, 3> Carried{};
  int Staying = 0;  ///< cards in North, which stay where they are

  bool operator==(const PokerStage&) const = default;
};

}  // namespace morvane::poker
