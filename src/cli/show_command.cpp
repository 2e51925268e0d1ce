#include "cli/show_command.h"

#include <array>

#include "cli/diagram.h"

namespace morvane::cli {
namespace {

constexpr std::array kOperands{Operand{"IN", "the set to show"}};
constexpr std::array kOptions{Option{"board", "N", "this board only"}, kImportOption};

}  // namespace

ShowOptions ReadShowOptions(OptionReader& given) {
  return {.In = given.Path(0), .Board = given.Number("board"), .Import = given.Has("import")};
}

ExitStatus Show(Job& job, const ShowOptions& options) {
  if (!Load(job, options.In, options.Import)) return kFailed;
  const BoardSet& set = job.Place.Prog.Set;
  if (options.Board && !IsInSet(job.Place, *options.Board)) return kFailed;
  const int first = options.Board.value_or(set.FirstBoard);
  const int last = options.Board.value_or(set.LastBoard);
  for (int n = first; n <= last; ++n) {
    job.Place.Screen.Out(BoardDiagram(set.At(n), n) + (n < last ? "\n" : ""));
  }
  return kDone;
}

constinit const Command kShowCommand{.Name = "show",
                                     .Operands = kOperands,
                                     .Options = kOptions,
                                     .Summary = "Shows the boards of a set as diagrams.",
                                     .Prepare = TaskOf<ReadShowOptions, Show>};

}  // namespace morvane::cli
