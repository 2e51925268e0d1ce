#include "cli/print_command.h"

#include <algorithm>
#include <array>

#include "print/layout.h"
#include "print/print_run.h"
#include "text/text.h"

namespace morvane::cli {
namespace {

using print::PrintMode;
using print::PrintOptions;

constexpr int kUsualLayout = 2;  // 12 boards

int LayoutWith(const std::string& boards) {
  const auto* const found =
      std::find_if(print::Layouts.begin(), print::Layouts.end(),
                   [&](const print::Layout& layout) { return layout.PerPage == Val(boards); });
  return static_cast<int>(found - print::Layouts.begin()) + 1;
}

void TakeLooks(const PrintRequest& request, PrintOptions& options) {
  if (options.PerPage == 0) options.PerPage = kUsualLayout;
  if (request.PerPage) options.PerPage = LayoutWith(*request.PerPage);
  options.Hcp = options.Hcp && !request.NoHcp;
  options.Colour = options.Colour && !request.NoColour;
  // Where they stand is the settings' choice, if they make one.
  if (request.Stats && options.Statistics == PrintOptions::kNoStatistics) {
    options.Statistics = PrintOptions::kStatisticsLast;
  }
  if (request.NsOffset) {
    options.PrintNS = true;
    options.NsOffset = Val(*request.NsOffset);
  }
}

void CheckTogether(OptionReader& given) {
  if (!given.Has("score-cards")) {
    if (given.Has("ns-offset")) given.Refuse("--ns-offset needs --score-cards");
    return;
  }
  for (const char* name : {"per-page", "stats", "header"}) {
    if (given.Has(name)) given.Refuse("--" + std::string(name) + " does not go with --score-cards");
  }
}

bool MakePdf(Job& job, const PrintRequest& request, const PrintOptions& options,
             const std::function<bool()>& boardDone) {
  Program& program = job.Place.Prog;
  LogParameters(program, options);
  job.Place.Operator.AnswerNextFile(request.Common.Out);
  const auto path = job.Place.Operator.AskFile({"Save as PDF", "PDF (*.pdf)|*.pdf", 1, "", true});
  return path && print::WritePdf(program, options, *path, SheetOf(request.Paper), boardDone);
}

constexpr std::array kOperands{
    Operand{"IN", "the set to print"},
    Operand{"OUT.pdf", "the PDF file to make"},
};
constexpr Option kPerPageOption{"per-page", "10|12|15|18", "how many boards stand on a page"};
constexpr std::array kOptions{
    kFromOption,
    kToOption,
    kPerPageOption,
    Option{"score-cards", "", "a score card for each board in place of hand records"},
    kNoAnalysisOption,
    Option{"no-hcp", "", "leave out the points of the hands"},
    Option{"no-colour", "", "print all in black"},
    Option{"stats", "", "add a page with the statistics of the boards printed"},
    kHeaderOption,
    kTenOption,
    kNationalOption,
    kPaperOption,
    Option{"ns-offset", "N", "print pair numbers on score cards, from N on"},
    kImportOption,
};

}  // namespace

PrintRequest ReadPrintRequest(OptionReader& given) {
  PrintRequest request{.Common = ReadPaperRequest(given),
                       .PerPage = given.Choice(kPerPageOption),
                       .ScoreCards = given.Has("score-cards"),
                       .NoHcp = given.Has("no-hcp"),
                       .NoColour = given.Has("no-colour"),
                       .Stats = given.Has("stats"),
                       .Paper = given.Choice(kPaperOption),
                       .NsOffset = given.BoardNumber("ns-offset")};
  CheckTogether(given);
  return request;
}

ExitStatus Print(Job& job, const PrintRequest& request) {
  const auto mode = request.ScoreCards ? PrintMode::kScoreCards : PrintMode::kHandRecords;
  auto options = TakePaper(job, request.Common, mode);
  if (!options) return kFailed;
  TakeLooks(request, *options);
  return PutOnPaper(job, request.Common.Out, "Boards", [&](const std::function<bool()>& boardDone) {
    return MakePdf(job, request, *options, boardDone);
  });
}

constinit const Command kPrintCommand{
    .Name = "print",
    .Operands = kOperands,
    .Options = kOptions,
    .Summary =
        "Prints hand records or score cards into a PDF file. What no option says, the settings "
        "say; without any, 12 boards stand on a page.",
    .Draws = true,
    .Prepare = TaskOf<ReadPrintRequest, Print>};

}  // namespace morvane::cli
