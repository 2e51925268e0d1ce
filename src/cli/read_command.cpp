#include "cli/read_command.h"

#include <algorithm>
#include <array>

#include "cli/diagram.h"
#include "cli/generate_command.h"
#include "cli/machine_side.h"
#include "cli/run_table.h"
#include "files/capability_checks.h"
#include "files/format_table.h"
#include "machine/run_options.h"
#include "platform/files.h"
#include "text/text.h"

namespace morvane::cli {
namespace {

using machine::RunOptions;

class Unseen final : public generate::GenerateView {
 public:
  void RunStarts() override {}
  void BoardsGen(int /*count*/) override {}
};

RunRequest RequestOf(const ReadOptions& options) {
  RunRequest request;
  if (options.Mode) {
    request.ReadMode =
        *options.Mode == "1" ? RunOptions::kSimulateDealing : RunOptions::kPlayedBoards;
  }
  request.Auto = options.Auto;
  request.Yes = options.Yes;
  return request;
}

/// The empty set, once everything is asked that a save of the full one asks. False: the operator
/// has been told.
bool MakeEmptySet(Job& job, const ReadOptions& options) {
  GenerateOptions empty;
  empty.First = options.First;
  empty.Last = options.Last;
  empty.Empty = true;
  Program& program = job.Place.Prog;
  const generate::GenerateRequest make = WhatToMake(program.Store, empty);
  generate::GenerateRequest whenRead = make;
  whenRead.Random = true;
  if (!MaySave(job, *ComingSet(whenRead), options.Out)) return false;
  Unseen unseen;
  generate::OpenGenerate(program, job.Shell.Deals());
  return generate::PressCmdDeal(program, job.Shell.Deals(), job.Shell.History().Ring(), make,
                                unseen)
             .End == generate::GenerateEnd::kDone;
}

std::string VerdictOn(const RunBoard& board, const BoardSet& set) {
  const int cards = CardsHeld(set.At(board.Number));
  const std::string text = std::to_string(cards) + (cards < kCards ? " of 52" : "");
  return board.Ok ? text : text + ", stopped";
}

void ShowTable(Workplace& place, const RunReport& report) {
  std::string text = "\n  Board     Time   Cards\n";
  for (const RunBoard& board : report.Boards) {
    text += RowOf(board, VerdictOn(board, place.Prog.Set));
  }
  place.Screen.Out(text + "\n");
}

/// That boards are missing is told at the end; what was read is not given up for it.
void AcceptIncomplete(Job& job, const std::string& path) {
  const files::Format* const format = files::FindFormat(files::ExtensionOf(FileTitle(path)));
  if (format == nullptr) return;
  const Messages& texts = job.Place.Prog.Texts;
  const std::string list = files::IncompleteBoardList(job.Place.Prog.Set);
  for (const std::string& text : {texts.Msg003, texts.Msg005}) {
    job.Place.Operator.AnswerAlways(Fill(Fill(text, "nnn", list), "***", format->Name), kYes);
  }
}

/// Of what no file has: the log, or where there is none either, as on a full disk, the terminal.
void SayWhereItStands(Job& job) {
  const Program& program = job.Place.Prog;
  if (program.Log.On()) {
    job.Place.Screen.Error("The boards that were read stand in the log: " + program.Log.Path() +
                           "\n");
    return;
  }
  for (const RunBoard& board : job.Windows.Report().Boards) {
    job.Place.Screen.Out(BoardDiagram(program.Set.At(board.Number), board.Number) + "\n");
  }
}

/// What was read is kept, also when the run ended early.
bool Keep(Job& job, const std::string& path) {
  const BoardSet& set = job.Place.Prog.Set;
  const auto& boards = job.Windows.Report().Boards;
  const bool any = std::any_of(boards.begin(), boards.end(), [&](const auto& board) {
    return CardsHeld(set.At(board.Number)) > 0;
  });
  if (!any) return false;
  AcceptIncomplete(job, path);
  if (Save(job, path)) return true;
  SayWhereItStands(job);
  return false;
}

ExitStatus EndOf(Job& job, const ReadOptions& options) {
  const RunReport& report = job.Windows.Report();
  if (report.Boards.empty()) return kFailed;
  ShowTable(job.Place, report);
  const BoardSet& set = job.Place.Prog.Set;
  const bool saved = Keep(job, options.Out);
  const auto read = std::count_if(report.Boards.begin(), report.Boards.end(),
                                  [](const RunBoard& board) { return board.Ok; });
  job.Place.Screen.Out(std::to_string(read) + " of " + std::to_string(set.Count()) +
                       " boards read, " + (saved ? "saved in " + options.Out : "nothing saved") +
                       ".\n");
  job.Partly = job.Partly ||
               !std::all_of(report.Boards.begin(), report.Boards.end(), [&](const RunBoard& board) {
                 return CardsHeld(set.At(board.Number)) == kCards;
               });
  return saved && read == set.Count() ? kDone : kFailed;
}

constexpr std::array kOperands{Operand{"OUT", "the file to save the set in"}};
constexpr Option kModeOption{"mode", "1|2",
                             "1: packs to be dealt by hand, 2: boards already played"};
constexpr std::array kOptions{
    Option{"first", "N", "the number of the first board"},
    Option{"last", "N", "the number of the last board"},
    kModeOption,
    Option{"auto", "", "start each board at once, without its pedal or board slot"},
};

}  // namespace

ReadOptions ReadReadOptions(OptionReader& given) {
  return {.Out = given.Path(0),
          .First = given.BoardNumber("first"),
          .Last = given.BoardNumber("last"),
          .Mode = given.Choice(kModeOption),
          .Auto = given.Has("auto"),
          .Yes = given.Has("yes")};
}

ExitStatus Read(Job& job, const ReadOptions& options) {
  Workplace& place = job.Place;
  const RunRequest request = RequestOf(options);
  if (!CanBeStarted(place, request) || !MakeEmptySet(job, options)) return kFailed;
  SayWhichMachine(place);
  job.Windows.RunBy(request, {.Judge = {}, .PressPedal = EyesOn(place.Simulated).PressPedal});
  place.Operator.AnswerAlways(place.Prog.Texts.Msg061, kNo);  // it is saved in any case
  job.Shell.MenuRead();
  return EndOf(job, options);
}

constinit const Command kReadCommand{
    .Name = "read",
    .Operands = kOperands,
    .Options = kOptions,
    .Summary =
        "Reads boards on the machine, one after the other, and saves them as a set. What no "
        "option says, the settings say.",
    .Note = "read saves what it has read also when it is stopped, or the link is lost.",
    .Prepare = TaskOf<ReadReadOptions, Read>};

}  // namespace morvane::cli
