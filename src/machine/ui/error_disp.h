#pragma once

#include <QDialog>

#include "machine/error_dialog.h"

namespace morvane::machine {

/// The window of an `ErrorDialog`: one fault and its buttons. It hides when the dialog has its
/// answer.
class ErrorDisp final : public QDialog {
 public:
  ErrorDisp(ErrorDialog& dialog, QWidget* parent);

  /// Escape and the close box stand for the button that stops.
  void reject() override;

 private:
  ErrorDialog& dialog_;
};

/// Shows the dialog over the window; returns when it has its answer.
void ShowErrorDisp(Program& program, ErrorDialog& dialog, QWidget* over);

}  // namespace morvane::machine
