#pragma once

#include <functional>

#include "maintenance/maintenance_view.h"

namespace morvane::maintenance {

/// The console as its parts see it.
class ConsoleHost {
 public:
  /// Does `work` with the link, unless the machine is not known or another has the link; then shows
  /// all that has come of it.
  virtual void AtMachine(const std::function<void()>& work) = 0;
  /// The console's window, while it is open.
  [[nodiscard]] virtual MaintenanceView& View() = 0;
  /// Somebody wants to leave: what can end early does.
  [[nodiscard]] virtual bool Leaving() const = 0;

 protected:
  ~ConsoleHost() = default;
};

}  // namespace morvane::maintenance
