#pragma once

#include <QWidget>

#include "machine/display_hand.h"
#include "platform/qt/spoken.h"

class QPainter;

namespace morvane::machine {

/// `Picture1`: the current board with compass, hands and double-dummy table. Drawn in the
/// coordinates of one fixed sheet and scaled to the widget.
class BoardPicture final : public QWidget, public Spoken {
 public:
  explicit BoardPicture(QWidget* parent);

  void Show(BoardDisplay display);

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QString SpokenText() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void DrawHeading(QPainter& painter) const;
  void DrawHand(QPainter& painter, int hand) const;
  void DrawAnalysis(QPainter& painter) const;

  BoardDisplay display_;
};

}  // namespace morvane::machine
