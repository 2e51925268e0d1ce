#pragma once

#include <QTransform>
#include <QWidget>

#include "platform/qt/spoken.h"
#include "poker/poker_stage.h"
#include "poker/stage_words.h"

class QPainter;

namespace morvane::poker {

/// Where the operator stands, to be read across the room: the four runs as four steps, and below
/// them what hands have to do with the piles before the next one, or how far the run is. Drawn in
/// the coordinates of one fixed sheet and scaled to the widget.
class StepsPicture final : public QWidget, public Spoken {
 public:
  explicit StepsPicture(QWidget* parent);

  /// Repaints at once what has changed.
  void Show(const PokerStage& stage);

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QString SpokenText() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  struct Step {
    QString Mark;  ///< its number
    QString Name;
    StepState State = StepState::kToCome;
  };
  [[nodiscard]] std::vector<Step> Steps() const;
  void DrawStep(QPainter& painter, const QRectF& box, const Step& step) const;
  void DrawDot(QPainter& painter, const QRectF& dot, const Step& step) const;
  void DrawTask(QPainter& painter) const;
  void DrawPiles(QPainter& painter, const QRectF& place, const std::vector<Pile>& piles) const;
  void DrawPile(QPainter& painter, const QRectF& place, const Pile& pile) const;
  void DrawProgress(QPainter& painter) const;
  /// From the sheet's units to pixels.
  [[nodiscard]] QTransform ToPixels() const;
  [[nodiscard]] QColor Ink() const;

  PokerStage stage_;
};

}  // namespace morvane::poker
