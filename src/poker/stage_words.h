#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "poker/poker_order.h"
#include "poker/poker_stage.h"

namespace morvane::poker {

/// How one of the four runs of a deal stands.
enum class StepState : std::uint8_t { kToCome, kNext, kRunning, kDone };

/// `run` is 1..4.
[[nodiscard]] StepState StateOfRun(const PokerStage& stage, int run);
[[nodiscard]] std::string_view NameOfRun(int run);       ///< "First Run"
[[nodiscard]] std::string_view WordOf(StepState state);  ///< "done"

/// Cards that lie together.
struct Pile {
  std::string_view Name;   ///< "East"
  int Cards = 0;           ///< 0: not told
  std::string_view Where;  ///< "on top"; may be empty

  bool operator==(const Pile&) const = default;
};

/// What hands have to do before the next run.
struct PilePicture {
  std::string_view Task;     ///< empty: nothing
  std::vector<Pile> Feeder;  ///< what goes into it, the top first
  std::vector<Pile> North;   ///< one pile: what lies there; none: that does not matter
};
[[nodiscard]] PilePicture PicturePiles(const PokerStage& stage);

/// How far the run under way is: "12 of 28 cards", or "14 s" where the machine does not tell;
/// empty when none is.
[[nodiscard]] std::string ProgressText(const PokerStage& stage);

/// All of it for who cannot see it, but for the progress.
[[nodiscard]] std::string StageInWords(const PokerStage& stage);

}  // namespace morvane::poker
