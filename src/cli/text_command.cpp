#include "cli/text_command.h"

#include <array>

#include "print/text_output.h"

namespace morvane::cli {
namespace {

constexpr std::array kOperands{
    Operand{"IN", "the set to write"},
    Operand{"OUT.txt", "the text file to make"},
};
constexpr std::array kOptions{kFromOption, kToOption,       kNoAnalysisOption, kHeaderOption,
                              kTenOption,  kNationalOption, kImportOption};

}  // namespace

ExitStatus WriteText(Job& job, const PaperRequest& request) {
  const auto options = TakePaper(job, request, print::PrintMode::kText);
  if (!options) return kFailed;
  Program& program = job.Place.Prog;
  LogParameters(program, *options);
  job.Place.Operator.AnswerNextFile(request.Out);
  return PutOnPaper(job, request.Out, "Boards", [&](const std::function<bool()>& boardDone) {
    return print::PrintToTextFile(program, *options, boardDone);
  });
}

constinit const Command kTextCommand{
    .Name = "text",
    .Operands = kOperands,
    .Options = kOptions,
    .Summary =
        "Writes the hands into a text file, with the makeable contracts where they are known. "
        "What no option says, the settings say.",
    .Note =
        "print and text write OUT as it is named, whatever its ending, but for one of a set file; "
        "they need no display.",
    .Prepare = TaskOf<ReadPaperRequest, WriteText>};

}  // namespace morvane::cli
