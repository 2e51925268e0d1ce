#include "platform/qt/filtered_edit.h"

#include <QFocusEvent>
#include <algorithm>
#include <utility>

#include "platform/qt/qt_text.h"

namespace morvane {

FilteredEdit::FilteredEdit(Filter filter, QWidget* parent)
    : QLineEdit(parent), filter_(std::move(filter)) {
  connect(this, &QLineEdit::textEdited, this, [this] { Edited(); });
}

void FilteredEdit::ShowText(const std::string& text) {
  const QString shown = ToQt(text);
  if (shown == this->text()) return;
  setText(shown);
  setCursorPosition(0);
}

void FilteredEdit::focusInEvent(QFocusEvent* event) {
  QLineEdit::focusInEvent(event);
  // What its own menu is to work on stays selected.
  if (selectsWhole_ && event->reason() != Qt::PopupFocusReason) selectAll();
  clickSelects_ = selectsWhole_ && event->reason() == Qt::MouseFocusReason;
}

/// The click that brings the focus sets the caret too.
void FilteredEdit::mousePressEvent(QMouseEvent* event) {
  QLineEdit::mousePressEvent(event);
  if (std::exchange(clickSelects_, false)) selectAll();
}

void FilteredEdit::Edited() { Show(filter_(Box())); }

// The caret counts characters, Qt's counts UTF-16 units.

/// What is pasted with line ends becomes one line; those at its end, as of a table's cell, go.
FilteredBox FilteredEdit::Box() const {
  QString before = text().left(cursorPosition());
  while (before.endsWith('\n') || before.endsWith('\r')) before.chop(1);
  QString line = before + text().mid(cursorPosition());
  line.replace('\n', ' ').replace('\r', ' ');
  return {FromQt(line), static_cast<int>(before.toUcs4().size())};
}

void FilteredEdit::Show(const FilteredBox& box) {
  const QString shown = ToQt(box.Text);
  if (shown == text()) return;
  setText(shown);
  const QList<uint> characters = shown.toUcs4();
  const auto before = QString::fromUcs4(reinterpret_cast<const char32_t*>(characters.constData()),
                                        std::min<qsizetype>(box.Caret, characters.size()));
  setCursorPosition(static_cast<int>(before.size()));
}

}  // namespace morvane
