#pragma once

#include <QPointer>
#include <QWidget>
#include <functional>
#include <vector>

#include "platform/event_loop.h"
#include "platform/ui.h"

class QFileDialog;
class QMessageBox;

namespace morvane {

/// The last box of all, when the program has quit and its windows are gone: nothing else goes on,
/// and it stands until it is closed.
void LastBox(const std::string& text, int flags, const std::string& title);

/// The operator at a desktop. Boxes and dialogs are modal to the window that is at work and wait in
/// the program's own loop, so that timers go on behind them; when the program quits they end with
/// the cautious answer (Cancel, or else No).
class QtUi final : public Ui {
 public:
  explicit QtUi(EventLoop& loop) : loop_(loop) {}
  QtUi(const QtUi&) = delete;
  QtUi& operator=(const QtUi&) = delete;
  ~QtUi() override;

  /// Until a main window is set, status texts and refreshes have nowhere to go. `client` is the
  /// part of it that mouse positions count in.
  struct MainWindow {
    QPointer<QWidget> Client;
    std::function<void(const std::string&)> Status;
    std::function<void()> RefreshSet;
  };
  void SetMainWindow(MainWindow window) { main_ = std::move(window); }

  int MessageBox(const std::string& text, int flags, const std::string& title) override;
  void BoxBeside(const std::string& text, int flags, const std::string& title) override;
  void Status(const std::string& text) override;
  std::optional<std::string> AskFile(const FileRequest& request) override;
  void RefreshSet() override;
  void Busy(bool on) override;
  void Waiting(const std::string& what) override;
  [[nodiscard]] Point Mouse() const override;

 private:
  [[nodiscard]] QWidget* Owner() const;
  /// Until it has gone.
  void Run(QDialog& dialog, Qt::WindowModality blocks = Qt::WindowModal);

  EventLoop& loop_;
  MainWindow main_;
  std::string status_;  ///< what the status bar is to show
  bool busy_ = false;
  bool waiting_ = false;
  std::vector<QPointer<QWidget>> beside_;  ///< boxes; one that was closed is null
};

}  // namespace morvane
