#include "generate/ui/generate_parts.h"

#include <QLabel>
#include <algorithm>

#include "platform/qt/qt_text.h"

namespace morvane::generate {

int NumberWidth(const QWidget& box) {
  constexpr int kLeast = 60;  // pixels
  return std::max(kLeast, box.fontMetrics().horizontalAdvance("0000000"));
}

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
