#include "cli/convert_command.h"

#include <array>

#include "files/import_set.h"

namespace morvane::cli {
namespace {

bool Import(Job& job, const std::string& path) {
  job.Place.Operator.AnswerNextFile(path);
  return files::ImportBoardSet(job.Place.Prog, job.Shell.History());
}

/// A number that nobody asked for would be lost without a word.
bool FirstWasTaken(Job& job, const std::optional<std::string>& first) {
  if (!first || job.Windows.NumbersAsked()) return true;
  const BoardSet& set = job.Place.Prog.Set;
  job.Place.Screen.Error("--first " + *first + " was not asked for: the set has boards " +
                         std::to_string(set.FirstBoard) + " to " + std::to_string(set.LastBoard) +
                         ".\n");
  return false;
}

constexpr std::array kOperands{
    Operand{"IN", "the file to load"},
    Operand{"OUT", "the file to save, in the format of its extension"},
};
constexpr std::array kOptions{
    Option{"first", "N", "the number of the first board of a file without numbers"},
    Option{"import", "", "take PBN as other programs write it, and report"},
};

}  // namespace

ConvertOptions ReadConvertOptions(OptionReader& given) {
  return {.In = given.Path(0),
          .Out = given.Path(1),
          .First = given.BoardNumber("first"),
          .Import = given.Has("import")};
}

ExitStatus Convert(Job& job, const ConvertOptions& options) {
  job.Windows.AnswerFirstBoard(options.First);
  const bool loaded = options.Import ? Import(job, options.In) : Load(job, options.In);
  if (!loaded || !FirstWasTaken(job, options.First)) return kFailed;
  return Save(job, options.Out) ? kDone : kFailed;
}

constinit const Command kConvertCommand{
    .Name = "convert",
    .Operands = kOperands,
    .Options = kOptions,
    .Summary = "Loads a set from one file and saves it in another.",
    .Prepare = TaskOf<ReadConvertOptions, Convert>};

}  // namespace morvane::cli
