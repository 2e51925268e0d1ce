#include "machine/ui/board_number.h"

#include <QPainter>
#include <algorithm>

#include "machine/ui/run_colours.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/readable_colour.h"

namespace morvane::machine {
namespace {

// The height of a line of digits; in pixels.
constexpr int kLeast = 64;
constexpr int kComfortable = 96;
constexpr int kMost = 160;

}  // namespace

BoardNumber::BoardNumber(QWidget* parent) : QWidget(parent), Spoken(QAccessible::StaticText) {
  setObjectName("lblBoard");
  setAccessibleName("Board");
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
}

void BoardNumber::Show(int board, const std::string& copy) {
  const QString number = QString::number(board);
  const QString copyText = ToQt(copy).trimmed();
  if (number == number_ && copyText == copy_) return;
  number_ = number;
  copy_ = copyText;
  updateGeometry();
  repaint();
  Announce(*this);
}

QFont BoardNumber::DigitFont(int digits) const {
  QFont large = font();
  large.setBold(true);
  large.setPixelSize(digits);
  return large;
}

QString BoardNumber::Caption() const { return copy_.isEmpty() ? "Board" : "Board, " + copy_; }

/// The caption above takes a line.
int BoardNumber::HeightFor(int digits) const {
  return QFontMetrics(DigitFont(digits)).ascent() + fontMetrics().height();
}

int BoardNumber::WidthFor(const QString& number, int digits) const {
  return QFontMetrics(DigitFont(digits)).horizontalAdvance(number);
}

/// Room for three digits, so that nothing moves on the way from 99 to 100.
QSize BoardNumber::sizeHint() const {
  return {std::max(WidthFor("000", kComfortable), minimumSizeHint().width()),
          HeightFor(kComfortable)};
}

QSize BoardNumber::minimumSizeHint() const {
  return {std::max(WidthFor("000", kLeast), fontMetrics().horizontalAdvance(Caption())),
          HeightFor(kLeast)};
}

int BoardNumber::Digits() const {
  int digits = kMost;
  while (digits > kLeast && (HeightFor(digits) > height() || WidthFor(number_, digits) > width())) {
    --digits;
  }
  return digits;
}

QString BoardNumber::SpokenText() const {
  return copy_.isEmpty() ? number_ : number_ + ", " + copy_;
}

void BoardNumber::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setPen(palette().color(QPalette::WindowText));
  const int line = fontMetrics().height();
  painter.drawText(QRect(0, 0, width(), line), Qt::AlignCenter, Caption());
  painter.setFont(DigitFont(Digits()));
  painter.setPen(ReadableOn(palette().color(QPalette::Window), kBoardNumber));
  painter.drawText(QRect(0, line, width(), height() - line), Qt::AlignCenter | Qt::TextDontClip,
                   number_);
}

}  // namespace morvane::machine
