#include "platform/qt/number_edit.h"

#include <QKeyEvent>

#include "platform/qt/qt_text.h"
#include "text/text.h"

namespace morvane {

NumberEdit::NumberEdit(int limit, QWidget* parent)
    : FilteredEdit([this](FilteredBox box) { return Typed(std::move(box)); }, parent),
      limit_(limit) {
  setAlignment(Qt::AlignRight);
  connect(this, &QLineEdit::editingFinished, this, [this] {
    if (OnLeave) OnLeave(FromQt(text()));
  });
}

void NumberEdit::ShowNumber(int number) {
  previous_ = std::to_string(number);
  ShowText(previous_);
}

int NumberEdit::Number() const { return Val(FromQt(text())); }

void NumberEdit::keyPressEvent(QKeyEvent* event) {
  QLineEdit::keyPressEvent(event);
  // Enter ends the entry; it must not go on to press the window's default button.
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) event->accept();
}

FilteredBox NumberEdit::Typed(FilteredBox box) {
  const bool valid = FilterNumber(box, previous_, limit_);
  if (valid && OnChange) OnChange(box.Text);
  return box;
}

}  // namespace morvane
