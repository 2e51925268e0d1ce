#pragma once

#include <QWidget>

#include "maintenance/test_deck.h"
#include "platform/qt/spoken.h"

namespace morvane::maintenance {

/// The deck of a test deal as a table, a suit a row from the Two up to the Ace: which cards have
/// been seen, and where the machine stopped.
class TestDeckView final : public QWidget, public Spoken {
 public:
  /// `deal` outlives it.
  TestDeckView(const TestDeal& deal, QWidget* parent);
  /// The deal has changed.
  void Show();
  [[nodiscard]] QString SpokenText() const override;
  [[nodiscard]] QSize sizeHint() const override;
  /// Where the machine's card 1..52 is painted.
  [[nodiscard]] QRect PlaceOf(int number) const;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  [[nodiscard]] QSize Cell() const;
  [[nodiscard]] QRect Grid() const;
  void PaintSuits(QPainter& painter) const;
  struct Card {
    QString Rank;
    DeckMark Mark;
    bool Seen;  ///< it has passed the camera
  };
  void PaintCard(QPainter& painter, const QRect& place, const Card& card) const;
  void PaintLegend(QPainter& painter) const;
  [[nodiscard]] int LegendWidth(const char* text) const;

  const TestDeal& deal_;
};

}  // namespace morvane::maintenance
