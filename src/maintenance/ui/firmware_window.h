#pragma once

#include <array>

#include "maintenance/firmware_progress.h"
#include "maintenance/ui/work_dialog.h"
#include "platform/clock.h"

class QProgressBar;

namespace morvane {
class ShownValue;
}

namespace morvane::maintenance {

/// `Firmware`: a download as it goes. Escape and the close box cancel it.
class FirmwareWindow final : public WorkDialog, public FirmwareView {
 public:
  FirmwareWindow(const Clock& clock, FirmwareDownload& download, QWidget* parent);

  void ShowDownload() override;

  void reject() override;

 protected:
  bool event(QEvent* event) override;

 private:
  QWidget* MakeBody();
  QWidget* MakeFacts();
  QWidget* MakeSteps();
  QWidget* MakeProgress();
  QWidget* MakeCounters();
  void ShowAll();
  void ShowSteps();
  void ShowCounters();
  [[nodiscard]] QString TimeLeft() const;

  const Clock& clock_;
  FirmwareDownload& download_;
  FirmwareProgress progress_;
  ShownValue* doing_ = nullptr;
  std::array<ShownValue*, FirmwareProgress::kSteps.size()> steps_{};
  QProgressBar* Download_bar_ = nullptr;
  ShownValue* blocks_ = nullptr;
  ShownValue* left_ = nullptr;
  ShownValue* lblFrames_ = nullptr;
  ShownValue* lblSum_ = nullptr;
  ShownValue* lblComm_ = nullptr;
  ShownValue* lblProg_ = nullptr;
  ShownValue* fault_ = nullptr;
};

}  // namespace morvane::maintenance
