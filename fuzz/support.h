#pragma once

#include <cstdlib>
#include <memory>

#include "model/board_set.h"

namespace morvane {

/// What does not hold is a finding.
inline void Require(bool holds) {
  if (!holds) std::abort();
}

/// A set as a reader wants it.
inline std::unique_ptr<BoardSet> ClearSet() {
  auto set = std::make_unique<BoardSet>();
  set->Clear();
  return set;
}

}  // namespace morvane
