#pragma once

#include <memory>

#include "files/load_number.h"

namespace morvane::machine {
class DealingRun;
class RunView;
}  // namespace morvane::machine

namespace morvane::shell {

/// Opens the windows of the flows, so that a flow knows none of them. A window is modal to
/// `MainMenu`, is shown when it is made and goes when it is destroyed.
class Windows : public files::NumberDialog {
 public:
  /// Shows the main window (`MainMenu`), not modal.
  virtual void ShowMainMenu() = 0;
  /// Puts the main window, and what is open over it, before other programs' windows.
  virtual void BringToFront() = 0;
  [[nodiscard]] virtual std::unique_ptr<machine::RunView> OpenDealinProg(
      machine::DealingRun& run) = 0;
};

}  // namespace morvane::shell
