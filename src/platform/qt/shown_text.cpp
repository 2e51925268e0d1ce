#include "platform/qt/shown_text.h"

#include <QCoreApplication>
#include <QInputMethodEvent>
#include <QTextCharFormat>

#include "platform/qt/suit_text.h"
#include "text/suit_signs.h"

namespace morvane {

ShownText::ShownText(const char* name, const char* tip, QWidget* parent) : QLineEdit(parent) {
  setObjectName(name);
  setToolTip(tip);
  setReadOnly(true);
}

void ShownText::ShowSuits(const QString& text) {
  setText(text);
  ColourSuits();
}

void ShownText::changeEvent(QEvent* event) {
  QLineEdit::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) ColourSuits();
}

/// A line has no markup; the colours of what an input method is composing are its only ones.
void ShownText::ColourSuits() {
  QList<QInputMethodEvent::Attribute> colours;
  for (std::size_t suit = 1; suit < SuitSigns.size(); ++suit) {
    QTextCharFormat colour;
    colour.setForeground(SuitColour(suit, palette()));
    const QString sign = SuitSign(suit);
    for (auto at = text().indexOf(sign); at >= 0; at = text().indexOf(sign, at + 1)) {
      colours.emplace_back(QInputMethodEvent::TextFormat, static_cast<int>(at) - cursorPosition(),
                           static_cast<int>(sign.size()), colour);
    }
  }
  QInputMethodEvent event({}, colours);
  setReadOnly(false);  // a box that is read-only takes none
  QCoreApplication::sendEvent(this, &event);
  setReadOnly(true);
}

}  // namespace morvane
