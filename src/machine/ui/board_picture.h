#pragma once

#include <QTransform>
#include <QWidget>
#include <array>
#include <optional>

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
  /// Cards that have fallen, by hand; nothing: none are under way.
  using Fallen = std::optional<std::array<int, kHands + 1>>;
  /// In the place of each hand stands a face-down card for each that has fallen. Paints no more
  /// than has changed.
  void ShowFallen(const Fallen& fallen);

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QString SpokenText() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void DrawHeading(QPainter& painter) const;
  void DrawHand(QPainter& painter, int hand) const;
  void DrawFallen(QPainter& painter, int hand) const;
  /// From the sheet's units to pixels.
  [[nodiscard]] QTransform ToPixels() const;
  void DrawAnalysis(QPainter& painter) const;

  BoardDisplay display_;
  Fallen fallen_;
};

}  // namespace morvane::machine
