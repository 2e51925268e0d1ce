#include "cli/analyze_command.h"

#include <array>

#include "files/format_table.h"
#include "platform/files.h"
#include "program/setting_keys.h"

namespace morvane::cli {
namespace {

using Status = analysis::DeepF::Status;

constexpr std::string_view kWithResults = "PBN";

bool CanHoldResults(const std::string& path) {
  const std::string ending = files::ExtensionOf(FileTitle(path));
  const auto* const format = files::FindFormat(ending);
  // What cannot be saved at all is told by the save.
  return format == nullptr || format->Write == nullptr || ending == kWithResults;
}

/// Results that stay out of the file would have been worked out in vain.
bool AreResultsSaved(Job& job) {
  if (job.Place.Prog.Store.IsOn(kSaveAnalyze)) return true;
  job.Place.Screen.Error(
      "The settings leave results out of files (Save_Analyze); nothing was analysed.\n");
  return false;
}

/// Whether the operator wants the whole set analysed; one board is no question.
bool IsWanted(Program& program, const AnalyzeOptions& options, analysis::Solver solver) {
  if (options.Board) return true;
  const std::string title(analysis::WordsOf(solver).Title);
  return program.Ask(QuestionOf(solver, program.Texts), kYesNoExclamation, title) == kYes;
}

constexpr std::array kOperands{Operand{"IN", "the set to analyse"},
                               Operand{"OUT", "the PBN file to save it in, with what was found"}};
constexpr Option kSolverOption{"solver", "dds|df", "who works it out; otherwise the settings say"};
constexpr std::array kOptions{
    kSolverOption,
    Option{"board", "N", "this board only"},
    kImportOption,
};

}  // namespace

AnalyzeOptions ReadAnalyzeOptions(OptionReader& given) {
  AnalyzeOptions options{.In = given.Path(0),
                         .Out = given.Path(1),
                         .With = {},
                         .Board = given.Number("board"),
                         .Import = given.Has("import")};
  if (const auto solver = given.Choice(kSolverOption)) {
    options.With = *solver == "dds" ? analysis::Solver::kDds : analysis::Solver::kDeepFinesse;
  }
  if (!CanHoldResults(options.Out)) {
    given.Refuse(options.Out + " cannot hold results; a .pbn file can");
  }
  return options;
}

ExitStatus Analyze(Job& job, const AnalyzeOptions& options) {
  Program& program = job.Place.Prog;
  if (!AreResultsSaved(job)) return kFailed;
  if (!Load(job, options.In, options.Import)) return kFailed;
  if (options.Board && !IsInSet(job.Place, *options.Board)) return kFailed;
  if (!MaySave(job, program.Set, options.Out)) return kFailed;
  const analysis::Solver solver = options.With.value_or(analysis::ChosenSolver(program.Store));
  if (!IsWanted(program, options, solver)) return kFailed;
  if (job.Shell.Analyze(solver, options.Board.value_or(0)) != Status::kAllFinished) return kFailed;
  return Save(job, options.Out) ? kDone : kFailed;
}

constinit const Command kAnalyzeCommand{
    .Name = "analyze",
    .Operands = kOperands,
    .Options = kOptions,
    .Summary = "Works out the makeable contracts of a set and saves it with them.",
    .Prepare = TaskOf<ReadAnalyzeOptions, Analyze>};

}  // namespace morvane::cli
