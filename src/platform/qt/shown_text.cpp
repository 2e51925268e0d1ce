#include "platform/qt/shown_text.h"

namespace morvane {

ShownText::ShownText(const char* name, const char* tip, QWidget* parent) : QLineEdit(parent) {
  setObjectName(name);
  setToolTip(tip);
  setReadOnly(true);
}

}  // namespace morvane
