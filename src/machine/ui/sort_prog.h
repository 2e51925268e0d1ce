#pragma once

#include "machine/sorting_run.h"
#include "machine/ui/run_dialog.h"

class QPushButton;

namespace morvane::machine {

class HistoryBox;
class OptionsPanel;
class RunHeader;
class TestPanel;

/// The window of a sorting run.
class SortProg final : public RunDialog {
 public:
  SortProg(Program& program, SortingRun& run, QWidget* parent);
  SortProg(const SortProg&) = delete;
  SortProg& operator=(const SortProg&) = delete;
  ~SortProg() override;

  void ShowState() override;
  void ShowControls() override;

 private:
  void MakeButtons();
  QWidget* PlaceBody();
  QWidget* PlaceCommands();

  SortingRun& run_;

  RunHeader* header_;
  HistoryBox* history_;
  OptionsPanel* options_;
  TestPanel* test_;
  QPushButton* cmdSort_ = nullptr;
  QPushButton* cmdSortBreak_ = nullptr;
};

}  // namespace morvane::machine
