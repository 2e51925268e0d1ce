#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "machine/board_run.h"
#include "machine/sorting_run.h"
#include "maintenance/maintenance.h"
#include "shell/shell.h"
#include "support/fakes.h"
#include "support/paper_machine.h"

namespace morvane::shell {

/// What a run window has gone through; it outlives the window.
struct RunWindowNotes {
  int Opened = 0;
  int Closed = 0;                 ///< told that the run is over
  int Gone = 0;                   ///< destroyed
  std::function<void()> OnBoard;  ///< the board is to be shown
};

/// A run window in which every fault is cancelled.
class FakeRunWindow final : public machine::RunView {
 public:
  explicit FakeRunWindow(RunWindowNotes& notes) : notes_(notes) { ++notes_.Opened; }
  FakeRunWindow(const FakeRunWindow&) = delete;
  FakeRunWindow& operator=(const FakeRunWindow&) = delete;
  ~FakeRunWindow() override { ++notes_.Gone; }

  void ShowState() override {}
  void ShowBoard() override {
    if (notes_.OnBoard) notes_.OnBoard();
  }
  void ShowControls() override {}
  void FocusNext() override {}
  void ShowError(machine::ErrorDialog& dialog) override { dialog.PressCancel(); }
  void Close() override { ++notes_.Closed; }

 private:
  RunWindowNotes& notes_;
};

class FakeWindows final : public FlowWindows {
 public:
  void ShowMainMenu() override {
    ++MainMenus;
    if (OnMainMenu) OnMainMenu();
  }
  void BringToFront() override { ++ToFront; }
  void ShowLoadNumber(files::LoadNumber& dialog) override {
    if (!HasWindows) return FlowWindows::ShowLoadNumber(dialog);
    ++LoadNumbers;
    if (OnLoadNumber) OnLoadNumber(dialog);
  }
  std::unique_ptr<analysis::DeepFView> OpenDeepF(analysis::DeepF& run) override {
    if (!HasWindows) return FlowWindows::OpenDeepF(run);
    struct NoView final : analysis::DeepFView {
      void Show() override {}
      void Close() override {}
    };
    Analyses.emplace_back(run.Title());
    if (OnDeepF) OnDeepF(run);
    return std::make_unique<NoView>();
  }
  bool ShowEdit(edit::Editor& editor) override {
    if (!HasWindows) return FlowWindows::ShowEdit(editor);
    ++Edits;
    if (OnEdit) OnEdit(editor);
    return true;
  }
  bool ShowHandRecord(print::HandRecord& dialog) override {
    if (!HasWindows) return FlowWindows::ShowHandRecord(dialog);
    ++HandRecords;
    if (OnHandRecord) OnHandRecord(dialog);
    return true;
  }
  void ShowGenerate(generate::GenerateForm& form) override {
    if (!HasWindows) return FlowWindows::ShowGenerate(form);
    ++Generates;
    if (OnGenerate) OnGenerate(form);
  }
  void ShowPreferences(Preferences& /*preferences*/) override { ++PreferencesShown; }
  std::unique_ptr<machine::RunView> OpenDealinProg(machine::BoardRun& run) override {
    if (!HasWindows) return FlowWindows::OpenDealinProg(run);
    auto window = std::make_unique<FakeRunWindow>(Run);
    if (OnRun) OnRun(run);
    return window;
  }

  std::unique_ptr<machine::RunView> OpenSortProg(machine::SortingRun& run) override {
    if (!HasWindows) return FlowWindows::OpenSortProg(run);
    auto window = std::make_unique<FakeRunWindow>(Run);
    if (OnSort) OnSort(run);
    return window;
  }
  std::unique_ptr<maintenance::MaintenanceView> OpenMaintenance(
      maintenance::Maintenance& console) override {
    if (!HasWindows) return FlowWindows::OpenMaintenance(console);
    struct NoView final : maintenance::MaintenanceView {
      void ShowReadings() override {}
      void ShowAll() override {}
      void ShowPicture() override {}
      void Magnify() override {}
      void ShowAdvance(maintenance::AdvanceForm& /*form*/) override {}
      std::unique_ptr<maintenance::TestDealView> OpenTestDeal(
          maintenance::TestDeal& /*deal*/) override {
        return nullptr;
      }
      void Close() override {}
    };
    if (OnMaintenance) OnMaintenance(console);
    return std::make_unique<NoView>();
  }

  bool ShowReadService(maintenance::ReadService& viewer, const std::string& path) override {
    if (!HasWindows) return FlowWindows::ShowReadService(viewer, path);
    ServiceFiles.push_back(path);
    if (OnReadService) OnReadService(viewer);
    return true;
  }

  void ShowStatistics(const StatisticsPage& page) override {
    Pages.push_back(page);
    if (OnStatistics) OnStatistics();
  }

  bool HasWindows = true;  ///< otherwise each answers as a program does that lacks it
  int MainMenus = 0;
  int ToFront = 0;
  int LoadNumbers = 0;
  int Edits = 0;
  int HandRecords = 0;
  int Generates = 0;
  int PreferencesShown = 0;
  RunWindowNotes Run;
  std::vector<StatisticsPage> Pages;  ///< of the statistics, as they were shown one after another
  std::function<void()> OnStatistics;
  std::function<void()> OnMainMenu;
  std::function<void(files::LoadNumber&)> OnLoadNumber;
  std::function<void(edit::Editor&)> OnEdit;
  std::function<void(print::HandRecord&)> OnHandRecord;
  std::function<void(generate::GenerateForm&)> OnGenerate;
  std::function<void(machine::BoardRun&)> OnRun;  ///< the window has been opened
  std::function<void(machine::SortingRun&)> OnSort;
  std::function<void(maintenance::Maintenance&)> OnMaintenance;
  std::vector<std::string> ServiceFiles;  ///< that were to be shown; "": one to be asked for
  std::function<void(maintenance::ReadService&)> OnReadService;
  std::vector<std::string> Analyses;              ///< the titles of their windows
  std::function<void(analysis::DeepF&)> OnDeepF;  ///< the window has been opened
};

/// Another program that runs or not, and takes a command or not.
class FakeInstance final : public Instance {
 public:
  bool Claim() override {
    ++Claims;
    return !AnotherRuns;
  }
  bool HandOver(std::string_view command) override {
    HandedOver.emplace_back(command);
    if (OnHandOver) OnHandOver();
    return Takes;
  }
  void Listen(Execute execute) override { Call = std::move(execute); }

  bool AnotherRuns = false;
  bool Takes = true;
  std::function<void()> OnHandOver;
  int Claims = 0;
  std::vector<std::string> HandedOver;
  Execute Call;  ///< what a later start does; empty until the shell listens
};

/// The shell on a desk whose log is not open yet, with a machine on paper.
struct ShellDesk : test::TestDesk {
  ShellDesk() {
    RuntimeError noFolder;
    EXPECT_FALSE(Prog.Log.Start("", noFolder));
  }

  test::ScriptedBridge Bridge{Clock};
  test::PaperMachine Paper{Bridge};
  FakeWindows Desktop;
  FakeInstance Programs;
  test::FakeProcesses Processes;
  Shell Main{Prog, Bridge, Processes, Desktop, Programs};

  /// Starts up and forgets what has been shown so far.
  void Start(const std::string& commandLine = "") {
    Main.StartUp(commandLine);
    Ui.Boxes.clear();
    Ui.Statuses.clear();
  }
  /// Moves the mouse in both directions and gives `Timer2mm` time to see it.
  void MoveMouse() {
    Ui.MouseNow.X += 3;
    Ui.MouseNow.Y += 5;
    Loop.WaitMs(2 * Shell::kTimer2Ms);
  }
  /// What the pool has collected: 8 for each time that the mouse fed it.
  [[nodiscard]] int Bits() { return Main.Deals().Pool.SeedmCounter; }
  [[nodiscard]] std::string LastLine() const {
    const auto lines = LogLines();
    return lines.empty() ? "" : lines.back();
  }
};

}  // namespace morvane::shell
