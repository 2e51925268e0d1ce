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

/// Behind the click that brings the focus too, which sets the caret.
void FilteredEdit::focusInEvent(QFocusEvent* event) {
  QLineEdit::focusInEvent(event);
  if (!selectsWhole_) return;
  selectAll();
  if (event->reason() == Qt::MouseFocusReason) {
    QMetaObject::invokeMethod(this, &QLineEdit::selectAll, Qt::QueuedConnection);
  }
}

void FilteredEdit::Edited() { Show(filter_(Box())); }

// The caret counts characters, Qt's counts UTF-16 units.

FilteredBox FilteredEdit::Box() const {
  return {FromQt(text()), static_cast<int>(text().left(cursorPosition()).toUcs4().size())};
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
