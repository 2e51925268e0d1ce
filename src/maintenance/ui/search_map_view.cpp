#include "maintenance/ui/search_map_view.h"

#include <QPainter>
#include <algorithm>

#include "maintenance/ui/service_widgets.h"

namespace morvane::maintenance {
namespace {

using Mark = SearchMap::Mark;

constexpr int kGap = 6;         // pixels, between the numbers and the grid
constexpr int kEachNumber = 2;  // columns from one that is written to the next
constexpr qreal kDot = 0.16;    // of a cell, from its middle
constexpr qreal kDisc = 0.34;
constexpr qreal kCross = 0.26;
constexpr qreal kThick = 2;
constexpr const char* kHere = "now";
constexpr std::array<std::pair<Mark, const char*>, 3> kLegend{
    {{Mark::kMissed, "not seen"}, {Mark::kHit, "seen"}, {Mark::kLost, "seen and lost"}}};

QRectF Around(const QPointF& middle, qreal reach) {
  return {middle.x() - reach, middle.y() - reach, 2 * reach, 2 * reach};
}

}  // namespace

SearchMapView::SearchMapView(const SearchMap& map, QWidget* parent)
    : QWidget(parent), Spoken(QAccessible::Graphic), map_(map) {
  setObjectName("SearchMap");
  setAccessibleName("Map of the search");
  setFixedSize(sizeHint());
}

void SearchMapView::Show() {
  update();
  Announce(*this);
}

QString SearchMapView::SpokenText() const {
  return QString("Row %1 of %2, seen and lost: %3")
      .arg(map_.RowNow() + 1)
      .arg(map_.Rows())
      .arg(map_.HitsLost());
}

int SearchMapView::Cell() const { return fontMetrics().height(); }

/// Between the numbers of the rows, those of the columns, and the legend.
QRect SearchMapView::Grid() const {
  const int left = fontMetrics().horizontalAdvance("888") + kGap;
  const int top = fontMetrics().height() + kGap;
  return {left, top, SearchMap::kColumns * Cell(), map_.Rows() * Cell()};
}

QSize SearchMapView::sizeHint() const {
  const QRect grid = Grid();
  int legend = LegendWidth(kHere);
  for (const auto& [mark, text] : kLegend) legend += LegendWidth(text);
  const int right = std::max(grid.width() + fontMetrics().horizontalAdvance("8"), legend);
  return {grid.left() + right, grid.bottom() + 1 + 2 * kGap + Cell()};
}

QRectF SearchMapView::PlaceOf(double column, double row) const {
  const QPointF corner = QPointF(column, row) * Cell() + Grid().topLeft();
  return {corner, QSizeF(Cell(), Cell())};
}

void SearchMapView::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const QRect grid = Grid();
  painter.fillRect(grid, palette().color(QPalette::Base));
  painter.setPen(palette().color(QPalette::Mid));
  for (int column = 0; column <= SearchMap::kColumns; ++column) {
    const int x = grid.left() + column * Cell();
    painter.drawLine(x, grid.top(), x, grid.bottom() + 1);
  }
  for (int row = 0; row <= map_.Rows(); ++row) {
    const int y = grid.top() + row * Cell();
    painter.drawLine(grid.left(), y, grid.right() + 1, y);
  }
  PaintNumbers(painter);
  painter.setRenderHint(QPainter::Antialiasing);
  for (int row = 0; row < map_.Rows(); ++row) {
    for (int column = 0; column < SearchMap::kColumns; ++column) {
      PaintMark(painter, PlaceOf(column, row), map_.At(column, row));
    }
  }
  const SearchMap::Place here = map_.Here();
  PaintHere(painter, PlaceOf(here.Column, here.Row));
  PaintLegend(painter);
}

/// A sign each, not only a colour.
void SearchMapView::PaintMark(QPainter& painter, const QRectF& place, Mark mark) const {
  const QPointF middle = place.center();
  const QColor ink = palette().color(QPalette::Text);
  const qreal cell = Cell();
  switch (mark) {
    case Mark::kAhead:
      return;
    case Mark::kMissed:
      painter.setPen(Qt::NoPen);
      painter.setBrush(ink);
      painter.drawEllipse(Around(middle, kDot * cell));
      return;
    case Mark::kHit:
      painter.setPen(ink);
      painter.setBrush(kGoodGround);
      painter.drawEllipse(Around(middle, kDisc * cell));
      return;
    case Mark::kLost: {
      const QRectF cross = Around(middle, kCross * cell);
      painter.setPen(QPen(ink, kThick));
      painter.drawLine(cross.topLeft(), cross.bottomRight());
      painter.drawLine(cross.topRight(), cross.bottomLeft());
      return;
    }
  }
}

void SearchMapView::PaintHere(QPainter& painter, const QRectF& place) const {
  painter.setPen(QPen(palette().color(QPalette::Text), kThick));
  painter.setBrush(Qt::NoBrush);
  painter.drawRect(place);
}

void SearchMapView::PaintNumbers(QPainter& painter) const {
  painter.setPen(palette().color(QPalette::WindowText));
  const QRect grid = Grid();
  const int high = fontMetrics().height();
  for (int column = 0; column < SearchMap::kColumns; column += kEachNumber) {
    const QRectF place = PlaceOf(column, 0);
    const QRectF above(place.left() - Cell(), 0, 3 * Cell(), high);
    painter.drawText(above, Qt::AlignCenter,
                     QString::number(SetupSearch::kFirstX + column * SetupSearch::kStep));
  }
  for (int row = 0; row < map_.Rows(); ++row) {
    const QRectF place = PlaceOf(0, row);
    const QRectF beside(0, place.top(), grid.left() - kGap, Cell());
    painter.drawText(beside, Qt::AlignRight | Qt::AlignVCenter,
                     QString::number(map_.FirstY() - row * SetupSearch::kStep));
  }
}

/// Of a sign, what stands beside it, and the room behind.
int SearchMapView::LegendWidth(const char* text) const {
  return Cell() + fontMetrics().horizontalAdvance(text) + 3 * kGap;
}

void SearchMapView::PaintLegend(QPainter& painter) const {
  const int y = Grid().bottom() + 1 + kGap;
  int x = Grid().left();
  const auto add = [&](const char* text, const auto& paint) {
    const QRectF place(x, y, Cell(), Cell());
    paint(place);
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(QRectF(x + Cell() + kGap, y, LegendWidth(text), Cell()),
                     Qt::AlignLeft | Qt::AlignVCenter, text);
    x += LegendWidth(text);
  };
  for (const auto& [mark, text] : kLegend) {
    add(text, [&, sign = mark](const QRectF& place) { PaintMark(painter, place, sign); });
  }
  add(kHere, [&](const QRectF& place) { PaintHere(painter, place.adjusted(1, 1, -1, -1)); });
}

}  // namespace morvane::maintenance
