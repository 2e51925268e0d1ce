#pragma once

#include <QMainWindow>
#include <functional>

#include "platform/qt/qt_ui.h"
#include "program/program.h"
#include "shell/shell.h"

class QAction;
class QLabel;
class QLineEdit;
class QMenu;
class QPushButton;
class QTreeWidget;

namespace morvane {
class FilteredEdit;
}

namespace morvane::shell {

/// The main window. Made in main_menu_layout.cpp.
class MainMenu final : public QMainWindow {
 public:
  MainMenu(Program& program, Shell& shell);

  /// What the operator's port needs of this window.
  [[nodiscard]] QtUi::MainWindow ForUi();
  /// The first panel of the status bar.
  void Status(const std::string& text);
  /// Shows the set, its texts and its file name as they are now.
  void RefreshSet();

 protected:
  void closeEvent(QCloseEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  bool event(QEvent* event) override;

 private:
  void MakeMenu();
  template <typename Menu>
  QAction* AddEntry(Menu& menu, const char* name, const char* caption,
                    const QKeySequence& keys = {}, std::function<void()> flow = nullptr);
  QWidget* MakeHeader();
  QWidget* MakeSetNumbers();
  QWidget* MakeStatistics();
  QWidget* MakeExtremes();
  void MakeStatusBar();
  QLineEdit* AddShownText(const char* name, const char* tip);
  FilteredEdit* AddEventText(const char* name, const char* tip, Shell::EventText which);
  QTreeWidget* AddListView(const char* name, const char* tip);

  void ShowTitle();
  void RestorePlace();
  void StorePlace();

  Program& program_;
  Shell& shell_;

  QLineEdit* txtFileName_ = nullptr;
  FilteredEdit* txtEventName_ = nullptr;
  FilteredEdit* txtEventSite_ = nullptr;
  FilteredEdit* txtEventDate_ = nullptr;
  QLineEdit* txtFirstBoard_ = nullptr;
  QLineEdit* txtLastBoard_ = nullptr;
  QLineEdit* txtCount_ = nullptr;
  QLineEdit* txtCompleted_ = nullptr;
  QLineEdit* txtMaxFreq_ = nullptr;
  QLineEdit* txtMinFreq_ = nullptr;
  QLineEdit* txtInDeals_ = nullptr;
  QTreeWidget* HandStat_ = nullptr;
  QTreeWidget* lbxShapes_ = nullptr;
  QPushButton* ShowStat_ = nullptr;
  QWidget* statistics_ = nullptr;
  QLabel* lblVersion_ = nullptr;
  QLabel* panel_ = nullptr;
  bool activated_ = false;
};

}  // namespace morvane::shell
