#pragma once

#include <QDialog>

#include "files/load_number.h"

class QLabel;
class QLayout;
class QLineEdit;

namespace morvane {
class FilteredEdit;
}

namespace morvane::files {

/// The window of a `LoadNumber`. It hides when the dialog is closed.
class LoadNumberWindow final : public QDialog {
 public:
  LoadNumberWindow(LoadNumber& dialog, QWidget* parent);

  /// There is no cancel: Escape does nothing, and neither does closing by the window manager.
  void reject() override {}

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  QLabel* AddLabel(const char* name, const std::string& text);
  QLayout* MakeNumbers();
  QWidget* MakeButtons();
  /// Brings the operator to the number, ready to be typed over.
  void EnterFirstBoard();

  LoadNumber& dialog_;
  FilteredEdit* txtFirstBoard_ = nullptr;
  QLineEdit* txtLastBoard_ = nullptr;
};

}  // namespace morvane::files
