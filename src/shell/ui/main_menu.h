#pragma once

#include <QMainWindow>

#include "platform/qt/qt_ui.h"
#include "program/program.h"
#include "shell/help.h"
#include "shell/shell.h"

class QLabel;

namespace morvane {
class ShownValue;
}

namespace morvane::shell {

class FirstSteps;
class SetHeader;
class SetNumbers;
class StatisticsPanel;

/// The main window: menu, what is known of the set, and the status bar.
class MainMenu final : public QMainWindow {
 public:
  MainMenu(Program& program, Shell& shell, Help& help);

  /// What the operator's port needs of this window.
  [[nodiscard]] QtUi::MainWindow ForUi();
  /// The first panel of the status bar.
  void Status(const std::string& text);
  /// Shows the set's texts and its file name as they are now; its figures go when there is no set.
  void RefreshSet();
  void ShowStatistics(const StatisticsPage& page);

 protected:
  void closeEvent(QCloseEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  bool event(QEvent* event) override;

 private:
  void MakeStatusBar();
  void MakeContent();
  void ShowTitle();
  void ShowOrHideStatistics();
  void ShowOrHideSteps();
  void RestorePlace();
  void StorePlace();

  Program& program_;
  Shell& shell_;

  SetHeader* header_ = nullptr;
  SetNumbers* numbers_ = nullptr;
  FirstSteps* steps_ = nullptr;
  StatisticsPanel* statistics_ = nullptr;
  QWidget* statisticsPart_ = nullptr;
  QLabel* lblVersion_ = nullptr;
  ShownValue* panel_ = nullptr;
  bool activated_ = false;
};

}  // namespace morvane::shell
