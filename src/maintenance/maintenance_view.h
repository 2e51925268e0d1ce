#pragma once

#include <memory>

namespace morvane::maintenance {

class Maintenance;

/// What the console needs of its window. Everything shown is read from `Maintenance`; the calls
/// only say that it changed.
class MaintenanceView {
 public:
  virtual ~MaintenanceView() = default;
  /// The readings and the verdict; after each poll.
  virtual void ShowReadings() = 0;
  /// All of it: identity, parameters, outputs, which controls are there and enabled.
  virtual void ShowAll() = 0;
  /// The service is over: the window goes.
  virtual void Close() = 0;
};

class MaintenanceDialog {
 public:
  virtual ~MaintenanceDialog() = default;
  /// Shows the window and gives it away; it goes when it is destroyed. Nothing: this program has no
  /// such window.
  [[nodiscard]] virtual std::unique_ptr<MaintenanceView> OpenMaintenance(
      Maintenance& /*maintenance*/) {
    return nullptr;
  }
};

}  // namespace morvane::maintenance
