#pragma once

#include <QWidget>

class QPlainTextEdit;
class QPushButton;

namespace morvane::machine {

class DealingRun;

/// The machine's diagnosis: `Command1` asks for it, `TestText` shows it.
class TestPanel final : public QWidget {
 public:
  TestPanel(DealingRun& run, QWidget* parent);
  void Show();

 private:
  DealingRun& run_;
  QPushButton* Command1_;
  QPlainTextEdit* TestText_;
};

}  // namespace morvane::machine
