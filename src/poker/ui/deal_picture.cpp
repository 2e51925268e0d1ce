#include "poker/ui/deal_picture.h"

#include <QPainter>
#include <algorithm>

#include "machine/ui/run_colours.h"
#include "platform/qt/qt_text.h"
#include "poker/card_text.h"
#include "poker/deal_words.h"
#include "poker/slot_names.h"

namespace morvane::poker {
namespace {

// The sheet, in units of a pixel at scale 1.
constexpr QSizeF kSheet{560, 158};
constexpr qreal kLeastScale = 0.5;
constexpr qreal kEdge = 6;
constexpr qreal kHead = 22;  // the height of the names
constexpr qreal kRow = 64;   // one row of cards below the last
constexpr QSizeF kCard{46, 54};
constexpr qreal kNumber = 19;  // the width of a slot's number
constexpr qreal kLetters = 24;
constexpr qreal kSmallLetters = 14;

int FirstSlot(DealPicture::Part part) { return part == DealPicture::Part::kPlayers ? 1 : 13; }
int LastSlot(DealPicture::Part part) { return part == DealPicture::Part::kPlayers ? 12 : kSlots; }
int Columns(DealPicture::Part part) {
  return (LastSlot(part) - FirstSlot(part) + 1) / 2;  // in two rows
}

/// Of a slot: its number and its card.
QRectF PlaceOf(DealPicture::Part part, int slot) {
  const int index = slot - FirstSlot(part);
  const int column = index % Columns(part);
  const int row = index / Columns(part);
  const qreal width = (kSheet.width() - 2 * kEdge) / Columns(part);
  return {kEdge + column * width, kEdge + kHead + row * kRow, width, kRow};
}

QRectF CardOf(const QRectF& place) {
  const qreal margin = (place.width() - kNumber - kCard.width()) / 2;
  return {QPointF(place.left() + margin + kNumber, place.top() + 2), kCard};
}

QFont SheetFont(qreal size, bool bold = false) {
  QFont font({"Arial", "Liberation Sans", "Helvetica"});
  font.setPixelSize(static_cast<int>(size));
  font.setBold(bold);
  return font;
}

}  // namespace

DealPicture::DealPicture(Part part, QWidget* parent)
    : QWidget(parent), Spoken(QAccessible::Graphic), part_(part) {
  setObjectName(part == Part::kPlayers ? "picReq" : "picReq1");
  setAccessibleName(part == Part::kPlayers ? "Cards of the players" : "Cards of the table");
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  setMinimumSize((kSheet * kLeastScale).toSize());
}

void DealPicture::Show(const PokerDeal& deal) {
  if (deal == deal_) return;
  deal_ = deal;
  update();
  Announce(*this);
}

QString DealPicture::SpokenText() const {
  return ToQt(SlotsInWords(deal_, FirstSlot(part_), LastSlot(part_)));
}

QSize DealPicture::sizeHint() const { return minimumSize(); }

QTransform DealPicture::ToPixels() const {
  const qreal scale = std::min(width() / kSheet.width(), height() / kSheet.height());
  return QTransform::fromTranslate((width() - kSheet.width() * scale) / 2,
                                   (height() - kSheet.height() * scale) / 2)
      .scale(scale, scale);
}

void DealPicture::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
  painter.setPen(machine::kPaperFrame);
  painter.setBrush(machine::kPaper);
  painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 6, 6);
  painter.setTransform(ToPixels(), true);
  DrawHeads(painter);
  for (int slot = FirstSlot(part_); slot <= LastSlot(part_); ++slot) DrawSlot(painter, slot);
}

void DealPicture::DrawHeads(QPainter& painter) const {
  painter.setFont(SheetFont(kSmallLetters, true));
  painter.setPen(machine::kBlackSuit);
  if (part_ == Part::kPlayers) {
    for (int slot = 1; slot <= kPlayers; ++slot) {
      DrawHead(painter, slot, slot, ToQt(SlotName(slot)));
    }
    return;
  }
  for (const SlotGroup& group : SharedCards) {
    DrawHead(painter, group.First, group.Last, ToQt(group.Name));
  }
}

/// Above the cards of its slots, and underlined where these are several.
void DealPicture::DrawHead(QPainter& painter, int first, int last, const QString& name) const {
  const QRectF from = CardOf(PlaceOf(part_, first));
  const QRectF to = CardOf(PlaceOf(part_, last));
  const QRectF place(from.left(), kEdge, to.right() - from.left(), kHead - 2);
  painter.drawText(place.adjusted(-kNumber, 0, kNumber, 0), Qt::AlignCenter, name);
  if (first != last) painter.drawLine(place.bottomLeft(), place.bottomRight());
}

void DealPicture::DrawSlot(QPainter& painter, int slot) const {
  const QRectF place = PlaceOf(part_, slot);
  const QRectF card = CardOf(place);
  painter.setFont(SheetFont(kSmallLetters));
  painter.setPen(machine::kNote);
  painter.drawText(QRectF(card.left() - kNumber, card.top(), kNumber - 3, card.height()),
                   Qt::AlignRight | Qt::AlignVCenter, QString::number(slot));
  const CardText text = CardTextOf(deal_[static_cast<std::size_t>(slot)]);
  const bool empty = text.Rank.empty();
  painter.setPen(
      QPen(empty ? machine::kPaperFrame : machine::kNote, 1, empty ? Qt::DashLine : Qt::SolidLine));
  painter.setBrush(empty ? Qt::NoBrush : QBrush(Qt::white));
  painter.drawRoundedRect(card, 5, 5);
  painter.setFont(SheetFont(kLetters, true));
  painter.setPen(text.Red ? machine::kRedSuit : machine::kBlackSuit);
  painter.drawText(card, Qt::AlignCenter, ToQt(text.Rank) + ToQt(text.Sign));
}

}  // namespace morvane::poker
