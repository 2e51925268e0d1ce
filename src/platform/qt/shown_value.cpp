#include "platform/qt/shown_value.h"

#include <QTextDocumentFragment>

namespace morvane {

ShownValue::ShownValue(const QString& name, const QString& spokenName, QWidget* parent)
    : QLabel(parent), Spoken(QAccessible::StaticText) {
  setObjectName(name);
  setAccessibleName(spokenName);
}

void ShownValue::Show(const QString& text) {
  setText(text);
  Announce(*this);
}

QString ShownValue::SpokenText() const {
  const bool markup = textFormat() != Qt::PlainText && Qt::mightBeRichText(text());
  return markup ? QTextDocumentFragment::fromHtml(text()).toPlainText() : text();
}

}  // namespace morvane
