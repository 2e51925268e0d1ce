#include "model/ui/compass.h"

#include <QPainter>
#include <algorithm>
#include <array>

namespace morvane {
namespace {

constexpr qreal kEdge = 0.22;    // how wide a side is, in parts of the square
constexpr qreal kLetter = 0.16;  // how high its letter is
constexpr int kLines = 5;        // of text, that the widget is high

bool IsVulnerable(int hand, int vul) {
  const bool northSouth = hand == kNorth || hand == kSouth;
  return vul == 4 || vul == (northSouth ? 2 : 3);
}

/// Each side is the north side turned round: a trapezium.
void DrawSides(QPainter& painter, qreal half, qreal edge, int vul) {
  const QPolygonF side{
      {{-half, -half}, {half, -half}, {half - edge, -half + edge}, {-half + edge, -half + edge}}};
  painter.setPen(Qt::NoPen);
  for (int hand = kNorth; hand <= kWest; ++hand) {
    painter.save();
    painter.rotate(90.0 * (hand - 1));
    painter.setBrush(IsVulnerable(hand, vul) ? kVulnerable : kSafe);
    painter.drawPolygon(side);
    painter.restore();
  }
}

void DrawLetters(QPainter& painter, qreal half, qreal edge, int dealer) {
  constexpr std::array<QPointF, kHands + 1> kOutward{{{}, {0, -1}, {1, 0}, {0, 1}, {-1, 0}}};
  painter.setPen(Qt::white);
  for (int hand = kNorth; hand <= kWest; ++hand) {
    const QPointF at = kOutward[static_cast<std::size_t>(hand)] * (half - edge / 2);
    QFont font = painter.font();
    font.setUnderline(hand == dealer);
    painter.setFont(font);
    painter.drawText(QRectF(at.x() - edge / 2, at.y() - edge / 2, edge, edge), Qt::AlignCenter,
                     QString(QChar(HandLetter(hand))));
  }
}

}  // namespace

void DrawCompass(QPainter& painter, const QRectF& place, int vul, int dealer) {
  const qreal half = place.width() / 2;
  const qreal edge = place.width() * kEdge;
  painter.save();
  painter.translate(place.center());
  DrawSides(painter, half, edge, vul);
  DrawLetters(painter, half, edge, dealer);
  painter.restore();
}

Compass::Compass(QWidget* parent) : QWidget(parent) {
  const int size = kLines * fontMetrics().lineSpacing();
  setMinimumSize(size, size);
}

void Compass::Show(int vul, int dealer) {
  vul_ = vul;
  dealer_ = dealer;
  update();
}

void Compass::paintEvent(QPaintEvent* /*event*/) {
  const qreal size = std::min(width(), height());
  QPainter painter(this);
  painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
  QFont bold = font();
  bold.setPixelSize(static_cast<int>(size * kLetter));
  bold.setBold(true);
  painter.setFont(bold);
  DrawCompass(painter, {(width() - size) / 2, (height() - size) / 2, size, size}, vul_, dealer_);
}

}  // namespace morvane
