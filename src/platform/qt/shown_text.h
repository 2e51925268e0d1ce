#pragma once

#include <QLineEdit>

namespace morvane {

/// A box whose text can be read and copied, and changes only when the program changes it.
class ShownText final : public QLineEdit {
 public:
  ShownText(const char* name, const char* tip, QWidget* parent);
};

}  // namespace morvane
