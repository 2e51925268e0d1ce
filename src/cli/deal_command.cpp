#include "cli/deal_command.h"

#include <algorithm>
#include <array>

#include "cli/machine_side.h"
#include "cli/run_table.h"
#include "machine/board_walk.h"

namespace morvane::cli {
namespace {

bool LiesRight(const RunBoard& board) { return board.Ok && board.Pockets.Right; }

std::string VerdictOn(const RunBoard& board) {
  if (!board.Ok) return "stopped";
  return board.Pockets.Text.empty() ? "dealt" : board.Pockets.Text;
}

RunRequest RequestOf(const DealOptions& options) {
  return {.From = options.From,
          .To = options.To,
          .Copies = options.Copies,
          .ReadMode = {},
          .Auto = options.Auto,
          .Yes = options.Yes};
}

/// How many boards `options` asks for, every copy counted.
int BoardsAsked(const BoardSet& set, const DealOptions& options) {
  const int from = options.From.value_or(set.FirstBoard);
  const int to = options.To.value_or(set.LastBoard);
  return (to - from + 1) * options.Copies.value_or(1);
}

/// Whether the boards asked for are there and somebody can start them; the operator has been told
/// if not.
bool MayDeal(Workplace& place, const DealOptions& options) {
  if (options.From && !IsInSet(place, *options.From)) return false;
  if (options.To && !IsInSet(place, *options.To)) return false;
  if (BoardsAsked(place.Prog.Set, options) < 1) {
    place.Screen.Error("--to must not be below --from.\n");
    return false;
  }
  return CanBeStarted(place, RequestOf(options));
}

/// The closing table. Done only when all `asked` boards were dealt and lie right as far as can be
/// seen.
ExitStatus ShowReport(Workplace& place, const RunReport& report, int asked) {
  if (report.Boards.empty()) return kFailed;
  const auto right = std::count_if(report.Boards.begin(), report.Boards.end(), LiesRight);
  std::string text = "\n  Board     Time   Pockets\n";
  for (const RunBoard& board : report.Boards) text += RowOf(board, VerdictOn(board));
  text += "\n" + std::to_string(right) + " of " + std::to_string(asked) + " boards " +
          (place.Simulated != nullptr ? "right" : "dealt") + ".\n";
  place.Screen.Out(text);
  return right == asked ? kDone : kFailed;
}

constexpr std::array kOperands{Operand{"IN", "the set to deal"}};
constexpr std::array kOptions{
    Option{"from", "N", "the first board to deal"},
    Option{"to", "N", "the last board to deal"},
    Option{"copies", "N", "how often each board is dealt, 99 times at most"},
    Option{"auto", "", "start each board at once, without its pedal or board slot"},
    kImportOption,
};

}  // namespace

DealOptions ReadDealOptions(OptionReader& given) {
  DealOptions options{.In = given.Path(0),
                      .From = given.Number("from"),
                      .To = given.Number("to"),
                      .Copies = given.Number("copies"),
                      .Auto = given.Has("auto"),
                      .Yes = given.Has("yes"),
                      .Import = given.Has("import")};
  constexpr int kMost = machine::BoardWalk::kMostCopies;
  if (options.Copies && *options.Copies > kMost) {
    given.Refuse("--copies: " + std::to_string(kMost) + " at most");
  }
  return options;
}

ExitStatus Deal(Job& job, const DealOptions& options) {
  Workplace& place = job.Place;
  if (!Load(job, options.In, options.Import) || !MayDeal(place, options)) return kFailed;
  SayWhichMachine(place);
  job.Windows.RunBy(RequestOf(options), EyesOn(place.Simulated));
  place.Operator.AnswerAlways(place.Prog.Texts.Msg060, kNo);
  job.Shell.MenuDeal();
  return ShowReport(place, job.Windows.Report(), BoardsAsked(place.Prog.Set, options));
}

constinit const Command kDealCommand{
    .Name = "deal",
    .Operands = kOperands,
    .Options = kOptions,
    .Summary = "Deals the boards of a set on the machine and shows how each of them went.",
    .Prepare = TaskOf<ReadDealOptions, Deal>};

}  // namespace morvane::cli
