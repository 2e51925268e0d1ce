#include "machine/ui/board_picture.h"

#include <QPaintEvent>
#include <QPainter>
#include <algorithm>
#include <utility>

#include "machine/board_words.h"
#include "machine/ui/run_colours.h"
#include "model/ui/compass.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/suit_text.h"

namespace morvane::machine {
namespace {

// The sheet, in units of a pixel at scale 1.
constexpr QSizeF kSheet{560, 350};
constexpr qreal kLeastScale = 0.36;
constexpr qreal kLine = 20;         // one suit below the last
constexpr qreal kCardStep = 18.67;  // one card right of the last
constexpr qreal kGlyphStep = 22;
constexpr qreal kTextSize = 16;
constexpr QRectF kCompass{220, 125, 100, 100};

struct HandPlace {
  QPointF Corner;
  qreal Width;
};
constexpr std::array<HandPlace, kHands + 1> kPlaces{
    {{}, {{205, 16}, 340}, {{340, 135}, 208}, {{205, 254}, 340}, {{16, 135}, 200}}};
constexpr QSizeF kBack{34, 50};  // of a face-down card
constexpr qreal kBackStep = 13;  // one face-down card right of the last
constexpr QPointF kHeading{16, 14};
constexpr QRectF kHeadingPlace{16, 14, 184, 96};
constexpr QPointF kTable{8, 240};
constexpr QRectF kTablePlace{8, 240, 192, 104};
constexpr qreal kColumn = 30;

QRectF PlaceOf(std::size_t hand) {
  return {kPlaces[hand].Corner, QSizeF(kPlaces[hand].Width, kSuits * kLine)};
}

bool IsRed(std::size_t suit) { return suit == 2 || suit == 3; }

QColor CardColour(std::size_t suit, bool dealt) {
  if (IsRed(suit)) return dealt ? kRedSuit : kPaleRedSuit;
  return dealt ? kBlackSuit : kPaleBlackSuit;
}

QFont SheetFont(qreal size, bool bold = false) {
  QFont font({"Arial", "Liberation Sans", "Helvetica"});
  font.setPixelSize(static_cast<int>(size));
  font.setBold(bold);
  return font;
}

/// Text with its left end at `at.x()`, in a line whose top is `at.y()`.
void DrawLine(QPainter& painter, QPointF at, const QString& text) {
  painter.drawText(QRectF(at, QSizeF(kSheet.width(), kLine)), Qt::AlignLeft | Qt::AlignVCenter,
                   text);
}

void DrawCentred(QPainter& painter, QPointF at, const QString& text) {
  painter.drawText(QRectF(at, QSizeF(kColumn, kLine)), Qt::AlignCenter, text);
}

}  // namespace

BoardPicture::BoardPicture(QWidget* parent) : QWidget(parent), Spoken(QAccessible::Graphic) {
  setAccessibleName("Board diagram");
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  setMinimumSize((kSheet * kLeastScale).toSize());
}

void BoardPicture::Show(BoardDisplay display) {
  display_ = std::move(display);
  update();
  Announce(*this);
}

void BoardPicture::ShowFallen(const Fallen& fallen) {
  if (fallen == fallen_ || !display_.HandsShown) {
    fallen_ = fallen;
    return;
  }
  const bool turned = fallen.has_value() != fallen_.has_value();
  const Fallen before = std::exchange(fallen_, fallen);
  if (turned) {
    update();
    Announce(*this);
    return;
  }
  // At once: who tells of it has the time now.
  QRegion changed;
  for (std::size_t hand = kNorth; hand <= kWest; ++hand) {
    if ((*before)[hand] != (*fallen)[hand]) {
      changed += ToPixels().mapRect(PlaceOf(hand)).toAlignedRect();
    }
  }
  repaint(changed);
}

QString BoardPicture::SpokenText() const {
  return ToQt(fallen_ ? BoardUnderWayInWords(display_) : BoardInWords(display_));
}

QSize BoardPicture::sizeHint() const { return minimumSize(); }

QTransform BoardPicture::ToPixels() const {
  const qreal scale = std::min(width() / kSheet.width(), height() / kSheet.height());
  return QTransform::fromTranslate((width() - kSheet.width() * scale) / 2,
                                   (height() - kSheet.height() * scale) / 2)
      .scale(scale, scale);
}

void BoardPicture::paintEvent(QPaintEvent* event) {
  QPainter painter(this);
  painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
  painter.setPen(kPaperFrame);
  painter.setBrush(kPaper);
  painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 6, 6);

  painter.setTransform(ToPixels(), true);
  // A card that falls has its hand painted, not the sheet.
  const auto changed = [&](const QRectF& part) {
    return event->region().intersects(ToPixels().mapRect(part).toAlignedRect());
  };
  if (changed(kCompass)) {
    painter.setFont(SheetFont(kTextSize, true));
    DrawCompass(painter, kCompass, display_.VulNumber, display_.DealerNumber);
  }
  if (changed(kHeadingPlace)) DrawHeading(painter);
  if (!display_.HandsShown) return;
  for (int hand = kNorth; hand <= kWest; ++hand) {
    if (!changed(PlaceOf(static_cast<std::size_t>(hand)))) continue;
    if (fallen_) {
      DrawFallen(painter, hand);
    } else {
      DrawHand(painter, hand);
    }
  }
  if (changed(kTablePlace)) DrawAnalysis(painter);
}

void BoardPicture::DrawHeading(QPainter& painter) const {
  QPointF at = kHeading;
  painter.setFont(SheetFont(kTextSize * 1.25, true));
  painter.setPen(kBoardNumber);
  DrawLine(painter, at, ToQt(display_.Board).trimmed());
  painter.setFont(SheetFont(kTextSize));
  painter.setPen(Qt::black);
  for (const std::string& line : {display_.Copy, display_.Vul, display_.Dealer}) {
    if (line.empty()) continue;
    at.ry() += kLine + 2;
    DrawLine(painter, at, ToQt(line).trimmed());
  }
}

void BoardPicture::DrawHand(QPainter& painter, int hand) const {
  const HandPlace& place = kPlaces[static_cast<std::size_t>(hand)];
  QPointF line = place.Corner;
  for (std::size_t suit = 1; suit <= kSuits; ++suit, line.ry() += kLine) {
    const auto& cards = display_.Hands[static_cast<std::size_t>(hand)][suit];
    painter.setFont(SheetFont(kTextSize + 2));
    painter.setPen(CardColour(suit, true));
    DrawLine(painter, line, SuitSign(suit));
    // A suit too long for its place moves closer together.
    const qreal room = (place.Width - kGlyphStep) / static_cast<qreal>(cards.size() + 1);
    const qreal step = std::min(kCardStep, room);
    painter.setFont(SheetFont(kTextSize));
    QPointF at = line + QPointF(kGlyphStep, 0);
    for (const auto& card : cards) {
      painter.setPen(CardColour(suit, card.Dealt));
      DrawLine(painter, at, ToQt(card.Letter));
      at.rx() += card.Letter.size() > 1 ? step * 1.35 : step;
    }
  }
}

void BoardPicture::DrawFallen(QPainter& painter, int hand) const {
  const QRectF place = PlaceOf(static_cast<std::size_t>(hand));
  const int count = (*fallen_)[static_cast<std::size_t>(hand)];
  const qreal step = std::min(kBackStep, (place.width() - kBack.width()) / std::max(count - 1, 1));
  const QPointF first(place.x() + 1, place.center().y() - kBack.height() / 2);
  painter.setPen(kPaper);
  painter.setBrush(kBlueGround);
  for (int card = 0; card < count; ++card) {
    painter.drawRoundedRect(QRectF(first + QPointF(card * step, 0), kBack), 3, 3);
  }
}

void BoardPicture::DrawAnalysis(QPainter& painter) const {
  painter.setPen(Qt::black);
  if (!display_.Analyzed) {
    painter.setFont(SheetFont(kTextSize - 3));
    painter.setPen(kNote);
    QPointF at = kTable + QPointF(8, kLine);
    for (const char* line : {"Analysis has not", "been completed", "  for this board"}) {
      DrawLine(painter, at, line);
      at.ry() += kLine;
    }
    return;
  }
  constexpr std::array<int, kHands> kRows{kNorth, kSouth, kEast, kWest};
  for (std::size_t strain = 0; strain < kDenominations; ++strain) {
    const qreal x = kColumn * static_cast<qreal>(strain + 1);
    painter.setFont(SheetFont(kTextSize, strain == 0));
    painter.setPen(CardColour(strain, true));
    DrawCentred(painter, kTable + QPointF(x, 0), strain == 0 ? QString("NT") : SuitSign(strain));
    painter.setFont(SheetFont(kTextSize));
    painter.setPen(Qt::black);
    for (std::size_t row = 0; row < kRows.size(); ++row) {
      const auto result = display_.Tricks[TricksIndex(kRows[row], strain)];
      DrawCentred(painter, kTable + QPointF(x, kLine * static_cast<qreal>(row + 1)),
                  QString::number(result));
    }
  }
  painter.setFont(SheetFont(kTextSize, true));
  for (std::size_t row = 0; row < kRows.size(); ++row) {
    DrawCentred(painter, kTable + QPointF(0, kLine * static_cast<qreal>(row + 1)),
                QString(QChar(HandLetter(kRows[row]))));
  }
}

}  // namespace morvane::machine
