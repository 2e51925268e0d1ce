#pragma once

#include <QDialog>

#include "machine/run_view.h"
#include "machine/sorting_run.h"
#include "program/program.h"

class QPushButton;

namespace morvane::machine {

class HistoryBox;
class OptionsPanel;
class RunHeader;
class TestPanel;

/// The window of a sorting run.
class SortProg final : public QDialog, public RunView {
 public:
  SortProg(Program& program, SortingRun& run, QWidget* parent);
  SortProg(const SortProg&) = delete;
  SortProg& operator=(const SortProg&) = delete;
  ~SortProg() override;

  void ShowState() override;
  void ShowControls() override;
  void ShowError(ErrorDialog& dialog) override;
  void Close() override;

  /// Escape must not end a run.
  void reject() override {}

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void MakeButtons();
  QWidget* PlaceBody();
  QWidget* PlaceCommands();

  Program& program_;
  SortingRun& run_;

  RunHeader* header_;
  HistoryBox* history_;
  OptionsPanel* options_;
  TestPanel* test_;
  QPushButton* cmdSort_ = nullptr;
  QPushButton* cmdSortBreak_ = nullptr;
  QPushButton* cmdExit_ = nullptr;
};

}  // namespace morvane::machine
