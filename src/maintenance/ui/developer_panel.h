#pragma once

#include <QWidget>

class QPlainTextEdit;
class QPushButton;

namespace morvane::maintenance {

class Maintenance;
class ValueEdit;

/// What only a developer needs.
class DeveloperPanel final : public QWidget {
 public:
  DeveloperPanel(Maintenance& maintenance, QWidget* parent);
  void Show();

 private:
  Maintenance& maintenance_;
  QPushButton* Test_;
  QPlainTextEdit* TestText_;
  ValueEdit* Test6_;
  ValueEdit* Test7_;
  QPushButton* Test_write_;
  QPushButton* Advance_;
};

}  // namespace morvane::maintenance
