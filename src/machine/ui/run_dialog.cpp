#include "machine/ui/run_dialog.h"

#include <QCloseEvent>
#include <QPushButton>

#include "machine/ui/error_disp.h"
#include "machine/ui/run_widgets.h"
#include "platform/qt/window_place.h"

namespace morvane::machine {

RunDialog::RunDialog(Program& program, MachineRun& run, QWidget* parent)
    : QDialog(parent), program_(program), run_(run) {
  PrepareRunWindow(*this, run);
}

void RunDialog::MakeExit() {
  cmdExit_ = NewButton(
      "cmdExit", "&Exit", [this] { run_.Exit(); }, this);
  cmdExit_->setMinimumWidth(kCommandWidth);
}

void RunDialog::Appear(const QSize& comfortable) {
  resize(sizeHint().expandedTo(comfortable));
  FitToScreen(*this);
  show();
}

void RunDialog::ShowFrame() {
  const RunControls& now = run_.Window().Controls;
  // Disabling what has the focus would hand it on to the next control.
  if (!now.Options && focusWidget() != nullptr) focusWidget()->clearFocus();
  cmdExit_->setEnabled(now.cmdExit);
}

void RunDialog::ShowError(ErrorDialog& dialog) { ShowErrorDisp(program_, dialog, this); }

void RunDialog::Close() { hide(); }

void RunDialog::closeEvent(QCloseEvent* event) {
  run_.Exit();
  event->setAccepted(run_.Closed());
}

}  // namespace morvane::machine
