#pragma once

#include <optional>

#include "maintenance/magnified_picture.h"
#include "maintenance/ui/service_dialog.h"

namespace morvane {
class ShownValue;
}

namespace morvane::maintenance {

class PixelView;

/// `Magnify1`: the last picture with each pixel as a square, and what is painted at the mouse. It
/// hides when it is closed.
class MagnifyWindow final : public ServiceDialog {
 public:
  /// `pictures` outlive it.
  MagnifyWindow(const PictureStore& pictures, QWidget* parent);

 private:
  QWidget* MakeButtons();
  void ShowPixels();
  void PointAt(std::optional<QPoint> place);

  MagnifiedPicture magnified_;
  PixelView* Picture2_ = nullptr;
  ShownValue* Cursor_x_ = nullptr;
  ShownValue* Cursor_y_ = nullptr;
  ShownValue* Bright_ = nullptr;
  std::optional<QPoint> place_;  ///< at which the operator is
};

}  // namespace morvane::maintenance
