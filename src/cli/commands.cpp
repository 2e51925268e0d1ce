#include "cli/commands.h"

#include "cli/audit_command.h"
#include "cli/console_run.h"
#include "cli/deal_command.h"
#include "cli/diagram.h"
#include "cli/generate_command.h"
#include "cli/history_command.h"
#include "files/import_set.h"
#include "files/load_set.h"
#include "platform/instance.h"

namespace morvane::cli {
namespace {

/// A command has no window to show and opens those of a run on the terminal.
class ConsoleWindows final : public shell::FlowWindows {
 public:
  ConsoleWindows(Workplace& place, const Request& request) : place_(place), request_(request) {}
  void ShowMainMenu() override {}
  void BringToFront() override {}
  /// A number that is refused is not asked for again: the load ends there.
  void ShowLoadNumber(files::LoadNumber& dialog) override {
    if (request_.First) dialog.txtFirstBoard = *request_.First;
    numbersAsked_ = true;
    dialog.Command1();
  }
  std::unique_ptr<machine::RunView> OpenDealinProg(machine::DealingRun& run) override {
    return std::make_unique<ConsoleRun>(place_.Prog, place_.Screen, run, request_,
                                        EyesOn(place_.Simulated), place_.Interrupted, report_);
  }
  [[nodiscard]] const RunReport& Report() const { return report_; }
  [[nodiscard]] bool NumbersAsked() const { return numbersAsked_; }

 private:
  Workplace& place_;
  const Request& request_;
  RunReport report_;
  bool numbersAsked_ = false;
};

bool Load(Workplace& place, const Request& request, shell::Shell& shell, ConsoleWindows& windows) {
  const int before = place.Operator.BoxesShown();
  std::string path = request.In;
  if (files::LoadBoardSet(place.Prog, shell.History(), windows, path)) return true;
  // Some faults have no words of their own.
  if (place.Operator.BoxesShown() == before) place.Screen.Error("Load operation aborted!\n");
  return false;
}

bool Import(Workplace& place, const Request& request, shell::Shell& shell) {
  place.Operator.AnswerNextFile(request.In);
  return files::ImportBoardSet(place.Prog, shell.History());
}

/// A number that nobody asked for would be lost without a word.
bool FirstWasTaken(Workplace& place, const Request& request, const ConsoleWindows& windows) {
  if (!request.First || windows.NumbersAsked()) return true;
  const BoardSet& set = place.Prog.Set;
  place.Screen.Error("--first " + *request.First + " was not asked for: the set has boards " +
                     std::to_string(set.FirstBoard) + " to " + std::to_string(set.LastBoard) +
                     ".\n");
  return false;
}

ExitStatus Convert(Workplace& place, const Request& request, shell::Shell& shell,
                   ConsoleWindows& windows) {
  const bool loaded =
      request.Import ? Import(place, request, shell) : Load(place, request, shell, windows);
  if (!loaded || !FirstWasTaken(place, request, windows)) return kFailed;
  return Save(place, request, shell) ? kDone : kFailed;
}

ExitStatus Show(Workplace& place, const Request& request, shell::Shell& shell,
                ConsoleWindows& windows) {
  if (!Load(place, request, shell, windows)) return kFailed;
  const BoardSet& set = place.Prog.Set;
  if (request.Board && !IsInSet(place, *request.Board)) return kFailed;
  const int first = request.Board.value_or(set.FirstBoard);
  const int last = request.Board.value_or(set.LastBoard);
  for (int n = first; n <= last; ++n) {
    place.Screen.Out(BoardDiagram(set.At(n), n) + (n < last ? "\n" : ""));
  }
  return kDone;
}

ExitStatus Deal(Workplace& place, const Request& request, shell::Shell& shell,
                ConsoleWindows& windows) {
  if (!Load(place, request, shell, windows) || !MayDeal(place, request)) return kFailed;
  place.Operator.AnswerAlways(place.Prog.Texts.Msg060, kNo);
  shell.MenuDeal();
  return ShowReport(place, windows.Report(), BoardsAsked(place.Prog.Set, request));
}

}  // namespace

ExitStatus RunCommand(Workplace& place, const Request& request) {
  ConsoleWindows windows(place, request);
  LoneInstance instance;  // a command may run beside the desktop
  shell::Shell shell(place.Prog, place.Usb, windows, instance);
  shell.StartUp(request.Raw);
  ExitStatus status = kWrongUsage;
  if (request.Command == "generate") status = Generate(place, request, shell);
  if (request.Command == "convert") status = Convert(place, request, shell, windows);
  if (request.Command == "show") status = Show(place, request, shell, windows);
  if (request.Command == "deal") status = Deal(place, request, shell, windows);
  if (request.Command == "history") status = ShowHistory(place, request, shell);
  if (request.Command == "audit") status = Audit(place, request);
  place.Prog.Set.BoardSetChanged = "0";  // what was not saved was not asked to be
  shell.Exit();
  return status;
}

}  // namespace morvane::cli
