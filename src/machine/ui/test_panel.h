#pragma once

#include <QWidget>

class QPlainTextEdit;
class QPushButton;

namespace morvane::machine {

class MachineRun;

/// The machine's diagnosis: `Command1` asks for it, `TestText` shows it.
class TestPanel final : public QWidget {
 public:
  TestPanel(MachineRun& run, QWidget* parent, const char* buttonName = "Command1");
  void Show();

 private:
  MachineRun& run_;
  QPushButton* Command1_;
  QPlainTextEdit* TestText_;
};

}  // namespace morvane::machine
