#pragma once

#include "maintenance/ui/service_dialog.h"

class QProgressBar;
class QPushButton;

namespace morvane::maintenance {

/// A window over the console while the machine is at work. Its one button, Escape and the close box
/// ask the work to end; the window goes when it is destroyed.
class WorkDialog : public ServiceDialog {
 public:
  WorkDialog(const WorkDialog&) = delete;
  WorkDialog& operator=(const WorkDialog&) = delete;
  ~WorkDialog() override { hide(); }

  /// What the button does.
  void reject() override = 0;

 protected:
  using ServiceDialog::ServiceDialog;
  /// `body`, which scrolls, and below it the button of that name.
  void Place(QWidget* body, const char* cancel);
  /// Once all in it says what it is to say.
  void Open();
  [[nodiscard]] QPushButton& CancelButton() { return *cancel_; }
  /// In per cent.
  [[nodiscard]] static QProgressBar* NewBar(const char* name, QWidget* parent);

  void closeEvent(QCloseEvent* event) override;

 private:
  QPushButton* cancel_ = nullptr;
};

}  // namespace morvane::maintenance
