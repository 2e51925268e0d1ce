#pragma once

#include <QDialog>

namespace morvane::maintenance {

/// A window over the console, modal to it. Enter presses the button that has the focus, and no
/// other; held down it presses once.
class ServiceDialog : public QDialog {
 public:
  ServiceDialog(const char* name, const char* title, QWidget* parent);

 protected:
  /// Once all its buttons are there.
  void WatchButtons();
  /// The window below has the keyboard again, also where a box over this one has gone with it.
  void hideEvent(QHideEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  bool eventFilter(QObject* button, QEvent* event) override;
};

}  // namespace morvane::maintenance
