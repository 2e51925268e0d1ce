#pragma once

#include <QWidget>

#include "maintenance/search_map.h"
#include "platform/qt/spoken.h"

namespace morvane::maintenance {

/// Draws a `SearchMap`: the grid, what each of its points has come to, where the search is, and
/// what the signs mean.
class SearchMapView final : public QWidget, public Spoken {
 public:
  /// `map` outlives it.
  SearchMapView(const SearchMap& map, QWidget* parent);
  /// The map has changed.
  void Show();
  [[nodiscard]] QString SpokenText() const override;
  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  [[nodiscard]] int Cell() const;
  [[nodiscard]] QRect Grid() const;
  [[nodiscard]] QRectF PlaceOf(double column, double row) const;
  void PaintMark(QPainter& painter, const QRectF& place, SearchMap::Mark mark) const;
  void PaintHere(QPainter& painter, const QRectF& place) const;
  void PaintNumbers(QPainter& painter) const;
  void PaintLegend(QPainter& painter) const;
  [[nodiscard]] int LegendWidth(const char* text) const;

  const SearchMap& map_;
};

}  // namespace morvane::maintenance
