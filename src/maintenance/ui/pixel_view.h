#pragma once

#include <QAbstractScrollArea>
#include <QImage>
#include <functional>
#include <optional>

#include "maintenance/painted_picture.h"
#include "platform/qt/spoken.h"

namespace morvane::maintenance {

/// Shows pixels, each as a square, and tells which of them the operator is at: by the mouse, or by
/// a cross that the arrow keys move. The wheel zooms in place; where it is larger than its place it
/// is dragged.
class PixelView final : public QAbstractScrollArea, public Spoken {
 public:
  static constexpr int kMostZoom = 8;

  /// `zoom` is what it begins with, and its room by itself; it never gets below 1.
  PixelView(const QString& name, const QString& spokenName, QSize pixels, int zoom,
            QWidget* parent);
  /// The size stays as it is.
  void FixZoom() { fixed_ = true; }

  /// Takes over what `colour` says of each pixel; paints no more than the lines that have changed.
  void Show(const std::function<Colour(int x, int y)>& colour) {
    ShowLines(colour, 0, image_.height());
  }
  /// The same of the lines from `first` to `end`, which is not one of them.
  void ShowLines(const std::function<Colour(int x, int y)>& colour, int first, int end);
  [[nodiscard]] const QImage& Image() const { return image_; }
  [[nodiscard]] int Zoom() const { return zoom_; }
  void ZoomTo(int zoom);
  /// What is said of the pixel that the operator is at.
  void Say(const QString& text);
  [[nodiscard]] QString SpokenText() const override { return spoken_; }

  std::function<void(std::optional<QPoint> pixel)> OnPoint;  ///< at it; nothing: at none any more
  std::function<void()> OnClick;                             ///< also Enter, or the space bar
  std::function<void()> OnCopy;
  std::function<void()> OnZoom;

  [[nodiscard]] QSize sizeHint() const override { return SizeAt(firstZoom_); }
  [[nodiscard]] QSize minimumSizeHint() const override;

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;
  void wheelEvent(QWheelEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  bool viewportEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  [[nodiscard]] QSize SizeAt(int zoom) const;
  [[nodiscard]] QPoint Origin() const;
  [[nodiscard]] std::optional<QPoint> PixelAt(const QPoint& place) const;
  [[nodiscard]] QRect PlaceOf(const QRect& pixels) const;
  void ZoomAround(int zoom, const QPoint& place);
  void PlaceBars();
  void PaintFocus();
  void PointAt(std::optional<QPoint> pixel);
  void MoveCross(const QPoint& by);
  bool ZoomByKey(const QKeyEvent& event);

  QImage image_;
  const int firstZoom_;
  int zoom_;
  bool fixed_ = false;
  int wheel_ = 0;  ///< turned since the last step
  std::optional<QPoint> cross_;
  std::optional<QPoint> pressed_;  ///< in the viewport
  QPoint scrolledAtPress_;
  bool dragged_ = false;
  QString spoken_;
};

}  // namespace morvane::maintenance
