#pragma once

#include <QTransform>
#include <QWidget>

#include "platform/qt/spoken.h"
#include "poker/poker_order.h"

class QPainter;

namespace morvane::poker {

/// A part of the deal: the cards that lie prepared on the pack, each with its slot beside it and
/// under the name that the printed list has for it. Drawn in the coordinates of one fixed sheet and
/// scaled to the widget.
class DealPicture final : public QWidget, public Spoken {
 public:
  enum class Part {
    kPlayers,  ///< `picReq`: slots 1 to 12
    kShared,   ///< `picReq1`: slots 13 to 28
  };
  DealPicture(Part part, QWidget* parent);

  void Show(const PokerDeal& deal);

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QString SpokenText() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void DrawHeads(QPainter& painter) const;
  void DrawHead(QPainter& painter, int first, int last, const QString& name) const;
  void DrawSlot(QPainter& painter, int slot) const;
  /// From the sheet's units to pixels.
  [[nodiscard]] QTransform ToPixels() const;

  const Part part_;
  PokerDeal deal_{};
};

}  // namespace morvane::poker
