#pragma once

#include <QDialog>
#include <chrono>
#include <optional>

#include "maintenance/maintenance_view.h"
#include "program/program.h"

class QPushButton;
class QTabWidget;

namespace morvane {
class ScrollingPart;
class ShownValue;
}  // namespace morvane

namespace morvane::maintenance {

class AsidePage;
class CardPanel;
class DeveloperPanel;
class IdentityPanel;
class Maintenance;
class OutputPanel;
class ParameterPanel;
class PicturePanel;
class SensorPanel;
class VerdictPanel;

/// `Maintenance`, the machine's service console: what all sensors say and the outputs in sight, and
/// beside them pages of what is seldom wanted at once. The camera's picture is a page of its own in
/// a narrow window, and in sight in a wide one.
class MaintenanceWindow final : public QDialog, public MaintenanceView {
 public:
  MaintenanceWindow(Program& program, Maintenance& maintenance, QWidget* parent);
  MaintenanceWindow(const MaintenanceWindow&) = delete;
  MaintenanceWindow& operator=(const MaintenanceWindow&) = delete;
  ~MaintenanceWindow() override;

  void ShowReadings() override;
  void ShowAll() override;
  void ShowPicture() override;
  void Magnify() override;
  void ShowAdvance(AdvanceForm& form) override;
  std::unique_ptr<AutoSetupView> OpenAutoSetup(AutoSetup& setup) override;
  std::unique_ptr<FirmwareView> OpenFirmware(FirmwareDownload& download) override;
  std::unique_ptr<ServiceFileView> OpenServiceFile(ServiceGathering& gathering) override;
  std::unique_ptr<BoardCalibrationView> OpenBoardCalibration(
      BoardCalibration& calibration) override;
  std::unique_ptr<TestDealView> OpenTestDeal(TestDeal& deal) override;
  void Close() override;

  /// Escape does what the close box does.
  void reject() override { AskToLeave(); }
  bool eventFilter(QObject* button, QEvent* event) override;

 protected:
  bool event(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  /// The repeats of a key come faster than that.
  static constexpr std::chrono::milliseconds kRepeats{300};

  QWidget* MakeLive(const Program& program);
  QWidget* MakeServiceButtons(QWidget* live);
  QWidget* MakePages(Program& program);
  QWidget* MakeButtons();
  void AddPage(QWidget* page, const char* caption);
  void AskToLeave();
  [[nodiscard]] bool IsHeldEscape(const QKeyEvent& event);
  void ShowContact();
  void ShowDownload();
  [[nodiscard]] int WidthBesidePicture() const;

  Program& program_;
  Maintenance& maintenance_;
  ShownValue* contact_ = nullptr;
  ScrollingPart* live_ = nullptr;
  SensorPanel* sensors_ = nullptr;
  OutputPanel* outputs_ = nullptr;
  VerdictPanel* verdict_ = nullptr;
  QTabWidget* tabs_ = nullptr;
  ParameterPanel* parameters_ = nullptr;
  PicturePanel* picture_ = nullptr;
  std::unique_ptr<AsidePage> aside_;  ///< the picture
  CardPanel* cards_ = nullptr;
  IdentityPanel* identity_ = nullptr;
  DeveloperPanel* developer_ = nullptr;
  QPushButton* Email_ = nullptr;
  QPushButton* DealTest_ = nullptr;
  QPushButton* Download_ = nullptr;
  std::optional<QPoint> testDealPlace_;  ///< where its window stood last
  bool keyHeld_ = false;                 ///< the last key came of one that is held down
  /// When the last window over this one has gone, or the last repeat of an Escape has come.
  std::chrono::microseconds heldEscapeAt_{-kRepeats};
};

}  // namespace morvane::maintenance
