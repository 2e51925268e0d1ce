#pragma once

#include <memory>

#include "maintenance/auto_setup_view.h"
#include "maintenance/board_calibration_view.h"
#include "maintenance/firmware_view.h"
#include "maintenance/service_file_view.h"
#include "maintenance/test_deal_view.h"

namespace morvane::maintenance {

class AdvanceForm;
class AutoSetup;
class BoardCalibration;
class FirmwareDownload;
class Maintenance;
class ServiceGathering;
class TestDeal;

/// What the console needs of its window. Everything shown is read from `Maintenance`; the calls
/// only say that it changed.
class MaintenanceView {
 public:
  virtual ~MaintenanceView() = default;
  /// The readings and the verdict; after each poll.
  virtual void ShowReadings() = 0;
  /// All of it: identity, parameters, outputs, picture, which controls are there and enabled.
  virtual void ShowAll() = 0;
  /// `Picture1` has changed, or how far its fetch has come.
  virtual void ShowPicture() = 0;
  /// Brings up `Magnify1`, until it is closed.
  virtual void Magnify() = 0;
  /// Brings up `Advance_form` and opens `form` in it, until that is closed.
  virtual void ShowAdvance(AdvanceForm& form) = 0;

  // Each shows a window and gives it away; it goes when it is destroyed. Where there is none, the
  // work is done unseen.
  [[nodiscard]] virtual std::unique_ptr<AutoSetupView> OpenAutoSetup(AutoSetup& /*setup*/) {
    return std::make_unique<AutoSetupView>();
  }
  [[nodiscard]] virtual std::unique_ptr<FirmwareView> OpenFirmware(FirmwareDownload& /*download*/) {
    return std::make_unique<FirmwareView>();
  }
  [[nodiscard]] virtual std::unique_ptr<ServiceFileView> OpenServiceFile(
      ServiceGathering& /*gathering*/) {
    return std::make_unique<ServiceFileView>();
  }
  [[nodiscard]] virtual std::unique_ptr<BoardCalibrationView> OpenBoardCalibration(
      BoardCalibration& /*calibration*/) {
    return std::make_unique<BoardCalibrationView>();
  }
  [[nodiscard]] virtual std::unique_ptr<TestDealView> OpenTestDeal(TestDeal& /*deal*/) {
    return std::make_unique<TestDealView>();
  }
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
