#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "model/board.h"
#include "simulator/options.h"

namespace morvane::bridges {

/// What a simulated machine is made from, or why there is none.
struct SimulatedChoice {
  simulator::Options Kind;
  std::vector<Board> Boards;  ///< to be read
  std::string Error;          ///< not empty: the rest means nothing
};

/// Takes "simulated[,key=value...]" and reads the file of its `pack=`.
[[nodiscard]] SimulatedChoice ChooseSimulated(std::string_view text);

}  // namespace morvane::bridges
