#include "maintenance/ui/test_deck_view.h"

#include <QPainter>
#include <algorithm>
#include <array>
#include <utility>

#include "platform/qt/qt_text.h"
#include "platform/qt/readable_colour.h"
#include "platform/qt/suit_text.h"

namespace morvane::maintenance {
namespace {

constexpr int kGap = 6;  // pixels, between the suits, the grid and the legend
constexpr int kInset = 2;
constexpr qreal kThick = 3;
constexpr std::array<std::pair<DeckMark, const char*>, 3> kLegend{
    {{DeckMark::kSeen, "seen"},
     {DeckMark::kExpected, "expected here"},
     {DeckMark::kTakenFor, "taken for"}}};

/// In the corner of a card, so that no line or colour carries it alone.
QString SignOf(DeckMark mark) {
  return mark == DeckMark::kExpected ? "!" : mark == DeckMark::kTakenFor ? "?" : "";
}

QPen FrameOf(DeckMark mark, const QColor& ink, const QColor& faint) {
  if (mark == DeckMark::kExpected) return {ink, kThick};
  if (mark == DeckMark::kTakenFor) return {ink, kThick, Qt::DotLine};
  return {faint, 1};
}

}  // namespace

TestDeckView::TestDeckView(const TestDeal& deal, QWidget* parent)
    : QWidget(parent), Spoken(QAccessible::Graphic), deal_(deal) {
  setObjectName("TestDeck");
  setAccessibleName("The deck");
  setFixedSize(sizeHint());
}

void TestDeckView::Show() {
  update();
  if (deal_.TestDealFailed()) Announce(*this);  // till then its window tells where it is
}

QString TestDeckView::SpokenText() const {
  QString text = QString("%1 of %2 cards seen").arg(deal_.CardsDealt()).arg(kCards);
  if (deal_.TestDealFailed()) text += ", expected " + ToQt(deal_.ExpectedCard());
  if (deal_.SeenNumber() != 0) text += ", taken for " + ToQt(deal_.SeenCard());
  return text;
}

QSize TestDeckView::Cell() const {
  const int high = fontMetrics().height();
  return {fontMetrics().horizontalAdvance("?8?") + 8 * kInset, high + 4 * kInset};
}

/// Between the suits and the legend.
QRect TestDeckView::Grid() const {
  const int left = fontMetrics().height() + kGap;
  return {left, 1, kRanks * Cell().width(), kSuits * Cell().height()};
}

QSize TestDeckView::sizeHint() const {
  int legend = 0;
  for (const auto& [mark, text] : kLegend) legend += LegendWidth(text);
  const QRect grid = Grid();
  return {grid.left() + std::max(grid.width(), legend) + 2,
          grid.bottom() + 1 + 2 * kGap + Cell().height()};
}

QRect TestDeckView::PlaceOf(int number) const {
  const int row = (number - 1) / kRanks;
  const int column = (number - 1) % kRanks;
  return {Grid().topLeft() + QPoint(column * Cell().width(), row * Cell().height()), Cell()};
}

void TestDeckView::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  PaintSuits(painter);
  for (int number = 1; number <= kCards; ++number) {
    const QString rank = ToQt(TestCardName(number)).mid(1);
    PaintCard(painter, PlaceOf(number),
              {rank, MarkOf(deal_, number), number <= deal_.CardsDealt()});
  }
  PaintLegend(painter);
}

void TestDeckView::PaintSuits(QPainter& painter) const {
  for (std::size_t suit = 1; suit <= kSuits; ++suit) {
    const QRect first = PlaceOf(static_cast<int>(suit - 1) * kRanks + 1);
    const QRect beside(0, first.top(), Grid().left() - kGap, first.height());
    painter.setPen(SuitColour(suit, palette()));
    painter.drawText(beside, Qt::AlignCenter, SuitSign(suit));
  }
}

/// A card that has been seen lies on the ground of what is selected, and is bold.
void TestDeckView::PaintCard(QPainter& painter, const QRect& place, const Card& card) const {
  const auto& [rank, mark, seen] = card;
  const QColor ground = palette().color(seen ? QPalette::Highlight : QPalette::Base);
  const QColor ink =
      ReadableOn(ground, palette().color(seen ? QPalette::HighlightedText : QPalette::Text));
  painter.fillRect(place, ground);
  painter.setPen(FrameOf(mark, ink, palette().color(QPalette::Mid)));
  painter.drawRect(place.adjusted(kInset / 2, kInset / 2, -kInset, -kInset));
  QFont font = this->font();
  font.setBold(mark != DeckMark::kAhead);
  painter.setFont(font);
  painter.setPen(ink);
  painter.drawText(place, Qt::AlignCenter, rank);
  painter.drawText(place.adjusted(2 * kInset, 0, -2 * kInset, 0), Qt::AlignRight | Qt::AlignTop,
                   SignOf(mark));
}

/// Of a sign, what stands beside it, and the room behind.
int TestDeckView::LegendWidth(const char* text) const {
  return Cell().width() + fontMetrics().horizontalAdvance(text) + 3 * kGap;
}

void TestDeckView::PaintLegend(QPainter& painter) const {
  QPoint at(Grid().left(), Grid().bottom() + 1 + kGap);
  for (const auto& [mark, text] : kLegend) {
    PaintCard(painter, {at, Cell()}, {"", mark, mark == DeckMark::kSeen});
    const QRect beside(at.x() + Cell().width() + kGap, at.y(), LegendWidth(text), Cell().height());
    painter.setFont(font());
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(beside, Qt::AlignLeft | Qt::AlignVCenter, text);
    at.rx() += LegendWidth(text);
  }
}

}  // namespace morvane::maintenance
