#include "shell/shell.h"

#include <utility>

#include "files/import_set.h"
#include "files/load_set.h"
#include "files/save_set.h"
#include "machine/open_link.h"

namespace morvane::shell {

Shell::Flow::Flow(Shell& shell) : shell_(shell) {
  ++shell_.flows_;
  shell_.Timer2mm_.reset();
}

Shell::Flow::~Flow() {
  if (--shell_.flows_ == 0 && shell_.started_) shell_.EnableTimer2mm();
}

Shell::Shell(Program& program, UsbXpress& usb, Windows& windows, Instance& instance)
    : program_(program),
      windows_(windows),
      instance_(instance),
      generator_(program),
      machine_(program, usb) {}

void Shell::MenuLoad() {
  if (FlowActive()) return;
  const Flow flow(*this);
  files::LoadBoardSet(program_, history_, windows_, startFile_);
}

void Shell::MenuImport() {
  if (FlowActive()) return;
  const Flow flow(*this);
  files::ImportBoardSet(program_, history_);
}

void Shell::MenuSave() {
  if (FlowActive()) return;
  const Flow flow(*this);
  files::SaveBoardSet(program_, history_);
}

void Shell::MenuDeal() {
  if (FlowActive()) return;
  const Flow flow(*this);
  program_.Status("Dealing");
  if (!program_.Set.Exists()) {
    program_.Status(program_.Texts.Msg034);
    program_.ShowMessage(program_.Texts.Msg034, kOkCritical, "Dealing Error");
  } else if (machine::OpenLink(program_, machine_.Link, kRunTimeoutMs)) {
    machine::DealingRun run(program_, machine_, runMemory_);
    const auto window = windows_.OpenDealinProg(run);
    run.Open(*window);
    program_.Loop.RunUntil([&] { return run.Closed(); });
    if (!run.Closed()) run.Exit();
  }
  program_.Status("Ready");
}

bool Shell::Exit() {
  if (FlowActive()) return false;
  const Flow flow(*this);
  // Before any question, so that the pool is saved even if the exit is cancelled.
  generator_.Pool.SavePool();
  if (program_.AnalysisRunning) {
    program_.ShowMessage(program_.Texts.Msg105, kOkCritical, "Exit Error");
    return false;
  }
  if (program_.Set.Changed()) {
    const int answer = program_.Ask(program_.Texts.Msg062, kYesNoCancelExclamation, "Exit");
    if (answer == kYes) files::SaveBoardSet(program_, history_);
    if (answer != kNo && program_.Set.Changed()) return false;
  }
  program_.Log.WriteTime(" Exit: ");
  started_ = false;
  program_.Loop.Quit();
  return true;
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

void Shell::ToggleStatistics() {
  program_.ShowStatistics = !program_.ShowStatistics;
  program_.Operator.RefreshSet();
}

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
    RefuseFirmware(request.File);
  }
  if (request.Pending == LinkRequest::kLoad) {
    startFile_ = request.File;
    MenuLoad();
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
