#pragma once

#include <memory>

#include "machine/run_view.h"

namespace morvane::machine {

class DealingRun;

/// The windows in which the machine runs.
class RunDialogs {
 public:
  virtual ~RunDialogs() = default;
  /// Shows the run's window and gives it away; it goes when it is destroyed. Nothing: this program
  /// has no such window.
  [[nodiscard]] virtual std::unique_ptr<RunView> OpenDealinProg(DealingRun& /*run*/) {
    return nullptr;
  }
};

}  // namespace morvane::machine
