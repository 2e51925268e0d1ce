#include "generate/ui/generate_parts.h"

#include <QLabel>

#include "platform/qt/qt_text.h"

namespace morvane::generate {

void MakeWords(QLabel& label) {
  label.setTextFormat(Qt::PlainText);
  label.setWordWrap(true);
  label.setAlignment(Qt::AlignTop | Qt::AlignLeft);
}

QLabel* NewWords(const char* name, std::string_view text, QWidget* parent) {
  auto* label = new QLabel(ToQt(text), parent);
  label->setObjectName(name);
  MakeWords(*label);
  return label;
}

}  // namespace morvane::generate
