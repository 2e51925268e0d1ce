#pragma once

#include <QDialog>

#include "analysis/deep_f.h"

class QProgressBar;
class QPushButton;

namespace morvane {
class ShownValue;
}

namespace morvane::analysis {

/// `DeepF`: how far an analysis has got, and a button to cancel it. Modal, or a window of its own
/// that belongs to no other.
class DeepFWindow final : public QDialog, public DeepFView {
 public:
  /// `mainWindow` is the one that a modal window is modal to, and another stands beside.
  DeepFWindow(DeepF& run, QWidget* mainWindow);

  void Show() override;
  void Close() override;

  /// Escape and the close box cancel; the solver has to answer first.
  void reject() override;

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void MakeParts();
  void StandBeside(const QWidget& mainWindow);

  DeepF& run_;
  ShownValue* label_;
  ShownValue* lblBoards_;
  QProgressBar* board_;
  QProgressBar* boards_;
  QPushButton* DF_Cancel_;
};

}  // namespace morvane::analysis
