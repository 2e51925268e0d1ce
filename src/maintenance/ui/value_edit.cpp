#include "maintenance/ui/value_edit.h"

#include <QKeyEvent>
#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <string>
#include <utility>

#include "maintenance/ui/service_widgets.h"

namespace morvane::maintenance {
namespace {

constexpr int kCorner = 7;  // the mark, in pixels
constexpr qsizetype kLeastDigits = 5;

}  // namespace

ValueEdit::ValueEdit(ValueBox& box, const char* name, const QString& spokenName, QWidget* parent)
    : FilteredEdit([this](FilteredBox typed) { return Typed(std::move(typed)); }, parent),
      box_(box) {
  setObjectName(name);
  setAccessibleName(spokenName);
  setAlignment(Qt::AlignRight);
  const auto digits = static_cast<qsizetype>(std::to_string(box.Limits().Upper).size());
  setFixedWidth(
      fontMetrics().horizontalAdvance(QString(std::max(digits + 2, kLeastDigits), QChar('0'))));
  SelectWholeOnFocus();
}

void ValueEdit::Show() {
  ShowText(box_.Text());
  MarkEdited(*this, box_.Edited());
}

void ValueEdit::Leave() {
  box_.Leave();
  Show();
  OnChange();
}

FilteredBox ValueEdit::Typed(FilteredBox typed) {
  box_.Change(typed);
  MarkEdited(*this, box_.Edited());
  OnChange();
  return typed;
}

/// Enter ends the entry; it must not go on to press a button.
void ValueEdit::keyPressEvent(QKeyEvent* event) {
  FilteredEdit::keyPressEvent(event);
  if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) return;
  Leave();
  selectAll();
  event->accept();
}

/// Another window over it does not leave the box.
void ValueEdit::focusOutEvent(QFocusEvent* event) {
  FilteredEdit::focusOutEvent(event);
  if (event->reason() == Qt::PopupFocusReason || event->reason() == Qt::ActiveWindowFocusReason) {
    return;
  }
  Leave();
}

void ValueEdit::paintEvent(QPaintEvent* event) {
  FilteredEdit::paintEvent(event);
  if (!box_.Edited()) return;
  QPainterPath corner;
  corner.lineTo(kCorner, 0);
  corner.lineTo(0, kCorner);
  corner.closeSubpath();
  QPainter(this).fillPath(corner.translated(1, 1), palette().color(QPalette::Text));
}

}  // namespace morvane::maintenance
