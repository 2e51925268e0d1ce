#pragma once

#include <QPainterPath>
#include <QWidget>

#include "maintenance/board_calibration.h"
#include "platform/qt/spoken.h"

namespace morvane::maintenance {

/// Draws what a `BoardCalibration` measures: at which sensitivities the board is seen, a line for
/// each sweep, where the two differ, and what is recommended.
class BoardCurve final : public QWidget, public Spoken {
 public:
  /// `calibration` outlives it.
  BoardCurve(const BoardCalibration& calibration, QWidget* parent);
  /// The calibration has gone on.
  void Show();
  [[nodiscard]] QString SpokenText() const override;
  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

  /// The frame that the lines stand in: the lowest sensitivity at its left edge, the highest at its
  /// right.
  [[nodiscard]] QRect Plot() const;
  /// How high a line stands in it.
  [[nodiscard]] int LevelOf(bool seen, BoardCalibration::Sweep way) const;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  [[nodiscard]] int High() const { return fontMetrics().height(); }
  [[nodiscard]] double PlaceOf(double sensitivity) const;
  [[nodiscard]] QRect NewPart() const;
  [[nodiscard]] QString DownText() const;
  [[nodiscard]] QString UpText() const;
  [[nodiscard]] QString BandText() const;
  [[nodiscard]] QString RecommendedText() const;
  [[nodiscard]] QPen PenOf(BoardCalibration::Sweep way) const;
  [[nodiscard]] QColor BandColour() const;
  [[nodiscard]] QPainterPath LineOf(BoardCalibration::Sweep way) const;
  void PaintBand(QPainter& painter) const;
  void PaintScale(QPainter& painter) const;
  void PaintHere(QPainter& painter) const;
  void PaintRecommended(QPainter& painter) const;
  void PaintLegend(QPainter& painter) const;

  const BoardCalibration& calibration_;
  QString words_;  ///< that are painted
};

}  // namespace morvane::maintenance
