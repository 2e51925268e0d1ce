#include "shell/shell.h"

#include <exception>
#include <utility>

#include "files/import_set.h"
#include "files/load_set.h"
#include "files/save_set.h"
#include "shell/edit_flow.h"
#include "shell/exit_flow.h"
#include "shell/maintenance_flow.h"
#include "shell/new_flow.h"
#include "shell/print_flow.h"
#include "shell/read_service_flow.h"
#include "shell/run_flows.h"

namespace morvane::shell {

Shell::Flow::Flow(Shell& shell, Waits waits) : shell_(shell) {
  if (waits == Waits::kAnew) shell_.program_.Locks.Renew();
  shell_.flowActive_ = true;
  shell_.Timer2mm_.reset();
}

Shell::Flow::~Flow() {
  shell_.flowActive_ = false;
  if (std::uncaught_exceptions() > 0) {
    shell_.cutOff_ = true;
    return;
  }
  shell_.Keep();
  if (shell_.started_) shell_.EnableTimer2mm();
}

Shell::Shell(Program& program, UsbXpress& usb, ProcessStarter& processes, FlowWindows& windows,
             Instance& instance, machine::MachineKind kind)
    : program_(program),
      windows_(windows),
      instance_(instance),
      generator_(program),
      machine_(program.Random, usb, kind),
      solver_(processes, program.Paths.Application, program.Paths.Settings) {}

void Shell::KeepUnsavedSet() { unsaved_.emplace(program_); }

void Shell::KeepRecentFiles() { recent_.emplace(program_); }

StartOutcome Shell::StartUp(const std::string& commandLine, const std::string& typed) {
  // Settings may have been waited for before.
  const Flow flow(*this, Flow::Waits::kAsBefore);
  const StartFiles files = ParseCommandLine(commandLine);
  const StartOutcome outcome = BecomeTheRunningOne(
      program_, instance_, files, [this](std::string_view command) { LinkExecute(command); });
  if (outcome != StartOutcome::kGoesOn) return outcome;
  startFile_ = files.StartFile;
  program_.ShowStatistics = program_.Store.IsOn(kDealShow);
  program_.VersionText = VersionTextOf(program_.ServiceLevel);
  generator_.Pool.InitPool(program_.Operator.Mouse());
  started_ = true;  // from here on there is a pool to be saved
  program_.Status("Loading...");
  windows_.ShowMainMenu();
  program_.Loop.Pump();
  history_.LoadHistory(program_);
  OpenLog(program_);
  if (history_.HistoryEnabled()) {
    program_.Log.WriteLine("History records: " + std::to_string(history_.Ring().HistoryUsed()));
  }
  program_.Status("Ready");
  LogStart(program_, generator_.Pool, typed);
  if (unsaved_) {
    unsaved_->Open();
    RefreshStatistics();
    keeper_ = program_.Loop.StartTimer(kKeepMs, [this] { Keep(); });
  }
  if (!files.FirmwareFile.empty()) {
    Service(files.FirmwareFile);
  } else if (!startFile_.empty()) {
    OpenStartFile();
  }
  if (unsaved_) unsaved_->TellNothingLost();
  return outcome;
}

void Shell::MenuNew() {
  if (FlowActive()) return;
  const Flow flow(*this);
  NewFlow(program_, generator_, history_, windows_, [this] { Keep(); });
}

void Shell::OpenStartFile() {
  if (program_.ServiceLevel > 0 && maintenance::IsServiceFile(startFile_)) {
    return ReadServiceFlow(program_, windows_, std::exchange(startFile_, {}));
  }
  files::LoadBoardSet(program_, history_, windows_, startFile_);
  RefreshStatistics();
}

void Shell::MenuLoad() {
  if (FlowActive()) return;
  const Flow flow(*this);
  files::LoadBoardSet(program_, history_, windows_, startFile_);
  RefreshStatistics();
}

void Shell::MenuImport() { Import({}); }

void Shell::Import(const std::string& path) {
  if (FlowActive()) return;
  const Flow flow(*this);
  files::ImportBoardSet(program_, history_, path);
  RefreshStatistics();
}

void Shell::MenuSave() {
  if (FlowActive()) return;
  const Flow flow(*this);
  files::SaveBoardSet(program_, history_);
}

void Shell::MenuRecent(const RecentFile& file) {
  if (FlowActive()) return;
  if (file.Imported) return Import(file.Path);
  startFile_ = file.Path;
  MenuLoad();
}

std::vector<RecentFile> Shell::Recent() const {
  return recent_ ? recent_->List() : std::vector<RecentFile>();
}

void Shell::MenuDeal() {
  if (FlowActive()) return;
  const Flow flow(*this);
  DealFlow(program_, machine_, runMemory_, windows_);
}

void Shell::MenuRead() {
  if (FlowActive()) return;
  const Flow flow(*this);
  // A board that was read is kept at once, and who reads all evening is told at once if it cannot
  // be.
  ReadFlow(program_, machine_, runMemory_, history_, windows_, [this] {
    Keep();
    if (!unsaved_ || !unsaved_->FailureToTell()) return false;
    unsaved_->TellFailure();
    return true;
  });
}

void Shell::MenuSort() {
  if (FlowActive()) return;
  const Flow flow(*this);
  SortFlow(program_, machine_, runMemory_, windows_);
}

void Shell::MenuPoker() {
  if (FlowActive()) return;
  const Flow flow(*this);
  PokerFlow(program_, machine_, runMemory_, windows_);
}

void Shell::MenuEdit() {
  if (FlowActive()) return;
  const Flow flow(*this);
  EditFlow(program_, generator_, clip_, windows_,
           {[this](const std::string& path) { Service(path, "Edit Board"); },
            [this](int board) { Analyze(analysis::ChosenSolver(program_.Store), board); }});
}

void Shell::MenuAnalyze() {
  if (FlowActive()) return;
  const Flow flow(*this);
  auto beside = AnalyzeFlow(program_, solver_, windows_);
  if (beside) analysis_ = std::move(beside);
}

analysis::DeepF::Status Shell::Analyze(analysis::Solver solver, int board) {
  return RunAnalysis(program_, solver_, windows_, solver, board);
}

void Shell::MenuPrint() {
  if (FlowActive()) return;
  const Flow flow(*this);
  PrintFlow(program_, windows_, [this](const std::string& path) { Service(path, "Printing"); });
}

void Shell::MenuMaintenance() {
  if (FlowActive()) return;
  const Flow flow(*this);
  Service({});
}

void Shell::MenuReadServiceFile() {
  if (FlowActive()) return;
  const Flow flow(*this);
  ReadServiceFlow(program_, windows_, {});
}

void Shell::Service(const std::string& firmware, const std::string& status) {
  MaintenanceFlow(program_, machine_, pictures_, windows_, firmware);
  program_.Status(status);
}

void Shell::CmdPref() {
  if (FlowActive()) return;
  const Flow flow(*this);
  Preferences preferences(program_);
  windows_.ShowPreferences(preferences);
}

bool Shell::Exit() {
  if (FlowActive()) return false;
  // The end is no time to wait again; and a command, which is one flow to its user, ends here.
  const Flow flow(*this, Flow::Waits::kAsBefore);
  if (!ExitFlow(program_, generator_, history_)) return false;
  // What was asked about is saved or given up by now. Edits are not asked about: the next start
  // offers them.
  if (unsaved_) program_.Set.Changed() ? unsaved_->Remove() : unsaved_->Keep();
  WriteExit();
  program_.Loop.Quit();
  return true;
}

void Shell::End() {
  if (!started_) return;
  generator_.Pool.SavePool();
  Keep();
  WriteExit();
}

void Shell::EndOfSession() {
  program_.Loop.Quit();
  if (FlowActive() || program_.AnalysisRunning) return Keep();
  End();
}

UnsavedCopy::State Shell::Fail(const std::string& what) {
  program_.Loop.Quit();
  failed_ = true;
  Keep();
  program_.Log.WriteLine(" Unexpected error: " + what);
  return unsaved_ ? unsaved_->Kept() : UnsavedCopy::State::kNone;
}

void Shell::WriteExit() {
  if (analysis_) analysis_->Run.BreakOff();
  analysis_.reset();
  keeper_.reset();
  if (unsaved_ && !failed_) unsaved_->End();  // a fault is no end: the next start says so
  unsaved_.reset();
  Timer2mm_.reset();
  program_.Log.WriteTime(" Exit: ");
  started_ = false;
}

void Shell::Keep() {
  if (!unsaved_) return;
  // A flow that a fault has cut off may have left half a set; the last copy is better than that.
  if (!cutOff_ || unsaved_->Kept() == UnsavedCopy::State::kNone) unsaved_->Keep();
}

FilteredBox Shell::ChangeEvent(EventText which, FilteredBox box) {
  BoardSet& set = program_.Set;
  FilterLength(box, which == EventText::kName   ? set.EventName
                    : which == EventText::kSite ? set.EventSite
                                                : set.EventDate);
  // Also for a text that was refused: required.
  set.BoardSetChanged = "1";
  return box;
}

void Shell::ShowStat() {
  if (FlowActive()) return;
  const Flow flow(*this);
  program_.ShowStatistics = !program_.ShowStatistics;
  program_.Operator.RefreshSet();
  RefreshStatistics();
}

void Shell::RefreshStatistics() { shell::RefreshStatistics(program_, windows_); }

void Shell::EnableTimer2mm() {
  Timer2mm_ = program_.Loop.StartTimer(kTimer2Ms, [this] { Timer2mmTick(); });
}

void Shell::LinkExecute(std::string_view command) {
  if (program_.Link.Pending != LinkRequest::kNone || command.empty()) return;
  const std::string file(command.substr(1));
  if (command.front() == '1') program_.Link = {LinkRequest::kLoad, file};
  if (command.front() == '2') program_.Link = {LinkRequest::kDownload, file};
  if (program_.Link.Pending != LinkRequest::kNone) windows_.BringToFront();
}

void Shell::Timer2mmTick() {
  const LinkRequest request = std::exchange(program_.Link, {});
  if (request.Pending == LinkRequest::kDownload) {
    const Flow flow(*this);
    Service(request.File);
  }
  if (request.Pending == LinkRequest::kLoad) {
    const Flow flow(*this);
    startFile_ = request.File;
    OpenStartFile();
  }
  if (unsaved_ && unsaved_->FailureToTell()) {
    const Flow flow(*this);
    unsaved_->TellFailure();
  }
  const Point mouse = program_.Operator.Mouse();
  generator_.Pool.SampleMouse(mouse.X, mouse.Y);
}

void Shell::Activated() {
  if (program_.ActivateTime == 0) {
    program_.ActivateTime = program_.Time.Now().MillisecondsOfDay();
  }
}

}  // namespace morvane::shell
