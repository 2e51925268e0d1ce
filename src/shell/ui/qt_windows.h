#pragma once

#include "program/program.h"
#include "shell/flow_windows.h"

class QWidget;

namespace morvane::shell {

class MainMenu;

/// The flows' windows on a desktop.
class QtWindows final : public FlowWindows {
 public:
  explicit QtWindows(Program& program) : program_(program) {}
  /// Must be called before a flow opens a window; `mainMenu` outlives every flow.
  void SetMainMenu(MainMenu& mainMenu) { mainMenu_ = &mainMenu; }

  void ShowMainMenu() override;
  void BringToFront() override;
  void ShowStatistics(const StatisticsPage& page) override;
  void ShowLoadNumber(files::LoadNumber& dialog) override;
  bool ShowEdit(edit::Editor& editor) override;
  bool ShowHandRecord(print::HandRecord& dialog) override;
  void ShowGenerate(generate::GenerateForm& form) override;
  void ShowPreferences(Preferences& preferences) override;
  [[nodiscard]] std::unique_ptr<machine::RunView> OpenDealinProg(machine::BoardRun& run) override;
  std::unique_ptr<analysis::DeepFView> OpenDeepF(analysis::DeepF& run) override;
  [[nodiscard]] std::unique_ptr<machine::RunView> OpenSortProg(machine::SortingRun& run) override;
  [[nodiscard]] std::unique_ptr<machine::RunView> OpenPoker(poker::Poker& poker) override;
  [[nodiscard]] std::unique_ptr<maintenance::MaintenanceView> OpenMaintenance(
      maintenance::Maintenance& maintenance) override;
  bool ShowReadService(maintenance::ReadService& viewer, const std::string& path) override;

 private:
  /// What a window opens over that a flow opens within its own: the flow's, or else the main one.
  [[nodiscard]] QWidget* Below() const;

  Program& program_;
  MainMenu* mainMenu_ = nullptr;
};

}  // namespace morvane::shell
