#pragma once

#include <optional>
#include <vector>

#include "model/board.h"

namespace morvane::simulator {

/// Where a person at the simulated machine gets packs from.
class PackSource {
 public:
  virtual ~PackSource() = default;
  /// Complete boards to be read; nothing when the person did not choose any. What is wrong with a
  /// choice has been told.
  virtual std::optional<std::vector<Board>> Ask() = 0;
};

}  // namespace morvane::simulator
