#include "cli/commands.h"

#include "cli/deal_command.h"
#include "cli/diagram.h"
#include "cli/generate_command.h"
#include "files/import_set.h"
#include "files/load_set.h"
#include "files/save_set.h"

namespace morvane::cli {
namespace {

/// A command has no window to show and opens those of a run on the terminal.
class ConsoleWindows final : public shell::Windows {
 public:
  ConsoleWindows(Workplace& place, const Request& request) : place_(place), request_(request) {}
  void ShowMainMenu() override {}
  std::unique_ptr<machine::RunView> OpenDealinProg(machine::DealingRun& run) override {
    return std::make_unique<ConsoleRun>(place_.Prog, place_.Screen, run, request_,
                                        EyesOn(place_.Simulated), place_.Interrupted, report_);
  }
  [[nodiscard]] const RunReport& Report() const { return report_; }

 private:
  Workplace& place_;
  const Request& request_;
  RunReport report_;
};

bool Load(Workplace& place, const Request& request) {
  std::string path = request.In;
  return files::LoadBoardSet(place.Prog, path);
}

bool Import(Workplace& place, const Request& request) {
  place.Operator.AnswerNextFile(request.In);
  return files::ImportBoardSet(place.Prog);
}

ExitStatus Convert(Workplace& place, const Request& request) {
  if (!(request.Import ? Import(place, request) : Load(place, request))) return kFailed;
  return Save(place, request) ? kDone : kFailed;
}

ExitStatus Show(Workplace& place, const Request& request) {
  if (!Load(place, request)) return kFailed;
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
                const ConsoleWindows& windows) {
  if (!Load(place, request) || !MayDeal(place, request)) return kFailed;
  place.Operator.AnswerAlways(place.Prog.Texts.Msg060, kNo);
  shell.MenuDeal();
  return ShowReport(place, windows.Report(), BoardsAsked(place.Prog.Set, request));
}

}  // namespace

bool Save(Workplace& place, const Request& request) {
  place.Operator.AnswerNextFile(request.Out);
  return files::SaveBoardSet(place.Prog);
}

ExitStatus RunCommand(Workplace& place, const Request& request) {
  ConsoleWindows windows(place, request);
  shell::Shell shell(place.Prog, place.Usb, windows);
  shell.StartUp(request.Raw);
  ExitStatus status = kWrongUsage;
  if (request.Command == "generate") status = Generate(place, request, shell);
  if (request.Command == "convert") status = Convert(place, request);
  if (request.Command == "show") status = Show(place, request);
  if (request.Command == "deal") status = Deal(place, request, shell, windows);
  place.Prog.Set.BoardSetChanged = "0";  // what was not saved was not asked to be
  shell.Exit();
  return status;
}

}  // namespace morvane::cli
