#pragma once

#include "maintenance/service_file_view.h"
#include "maintenance/ui/work_dialog.h"

class QProgressBar;

namespace morvane {
class ShownValue;
}

namespace morvane::maintenance {

class PixelView;
class ServiceGathering;

/// `Service_file`: the pictures of a service file as they come. Escape and the close box cancel it.
class ServiceFileWindow final : public WorkDialog, public ServiceFileView {
 public:
  /// `picture` is told of what has changed in the console's picture.
  ServiceFileWindow(ServiceGathering& gathering, std::function<void()> picture, QWidget* parent);

  void ShowGathering() override;

  void reject() override;

 private:
  QWidget* MakeBody();
  [[nodiscard]] QString Doing() const;

  ServiceGathering& gathering_;
  std::function<void()> picture_;
  ShownValue* doing_ = nullptr;
  QProgressBar* ProgressBar1_ = nullptr;
  PixelView* card_ = nullptr;
};

}  // namespace morvane::maintenance
