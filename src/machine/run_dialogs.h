#pragma once

#include <memory>

#include "machine/run_view.h"

namespace morvane::machine {

class BoardRun;
class SortingRun;

/// The windows in which the machine runs.
class RunDialogs {
 public:
  virtual ~RunDialogs() = default;
  /// Shows the run's window and gives it away; it goes when it is destroyed. Nothing: this program
  /// has no such window.
  [[nodiscard]] virtual std::unique_ptr<RunView> OpenDealinProg(BoardRun& /*run*/) {
    return nullptr;
  }
  [[nodiscard]] virtual std::unique_ptr<RunView> OpenSortProg(SortingRun& /*run*/) {
    return nullptr;
  }
};

}  // namespace morvane::machine
