#pragma once

#include <QPoint>
#include <QWidget>
#include <optional>

#include "maintenance/painted_picture.h"

namespace morvane {
class ShownValue;
}

namespace morvane::maintenance {

class PixelView;

/// Tells of the pixel that the operator is at.
class PixelReadOut final : public QWidget {
 public:
  explicit PixelReadOut(QWidget* parent);
  /// Of what is `painted`, overlays included, in `view`, which says it too; `at` nothing: of none.
  void Show(const PaintedPicture& painted, std::optional<QPoint> at, PixelView& view);

 private:
  ShownValue* Cur_x_;
  ShownValue* Cur_y_;
  ShownValue* Brightness_;
  ShownValue* zoom_;
};

}  // namespace morvane::maintenance
