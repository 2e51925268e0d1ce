#pragma once

#include <QDialog>

#include "machine/machine_run.h"
#include "machine/run_view.h"
#include "program/program.h"

class QPushButton;

namespace morvane::machine {

/// What the windows of all runs share. A derived one hides itself in its own destructor: what has
/// the focus is left when the window goes, and must still be whole then.
class RunDialog : public QDialog, public RunView {
 public:
  RunDialog(const RunDialog&) = delete;
  RunDialog& operator=(const RunDialog&) = delete;

  void ShowError(ErrorDialog& dialog) override;
  void Close() override;

  /// Escape must not end a run.
  void reject() override {}

 protected:
  RunDialog(Program& program, MachineRun& run, QWidget* parent);

  void closeEvent(QCloseEvent* event) override;

  /// `cmdExit`, where its turn comes for the tab key.
  void MakeExit();
  /// All its parts are there: it opens, as large as they want and the screen allows.
  void Appear(const QSize& comfortable);
  /// Before the parts are shown anew.
  void ShowFrame();

  Program& program_;
  QPushButton* cmdExit_ = nullptr;

 private:
  MachineRun& run_;
};

}  // namespace morvane::machine
