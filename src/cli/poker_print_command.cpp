#include "cli/poker_print_command.h"

#include <array>

#include "cli/order_job.h"
#include "cli/paper_request.h"
#include "poker/poker_print.h"
#include "print/print_failure.h"
#include "text/text.h"

namespace morvane::cli {
namespace {

bool MakePdf(Job& job, const PokerPrintOptions& options, const poker::PokerOrder& order,
             const std::function<bool()>& dealDone) {
  job.Place.Operator.AnswerNextFile(options.Out);
  const auto path = job.Place.Operator.AskFile({"Save as PDF", "PDF (*.pdf)|*.pdf", 1, "", true});
  return path &&
         poker::WritePokerPdf(job.Place.Prog, order, *path, SheetOf(options.Paper), dealDone);
}

constexpr std::array kOperands{
    Operand{"IN.pkr", "the order to print"},
    Operand{"OUT.pdf", "the PDF file to make"},
};
constexpr std::array kOptions{kPaperOption};

}  // namespace

PokerPrintOptions ReadPokerPrintOptions(OptionReader& given) {
  PokerPrintOptions options{
      .In = given.Path(0), .Out = given.Path(1), .Paper = given.Choice(kPaperOption)};
  if (LowerCase(options.Out).ends_with(".pkr")) {
    given.Refuse(options.Out + " is a poker order by its name");
  }
  RefuseSetName(given, options.Out);
  return options;
}

ExitStatus PokerPrint(Job& job, const PokerPrintOptions& options) {
  job.Place.Operator.NameFile(print::kPrintingError, options.Out);
  if (!MayWriteOut(job, {options.In, options.Out, "order"})) return kFailed;
  poker::PokerOrder order;
  if (!LoadOrder(job, options.In, order)) return kFailed;
  return PutOnPaper(job, options.Out, "Deals", [&](const std::function<bool()>& dealDone) {
    return MakePdf(job, options, order, dealDone);
  });
}

constinit const Command kPokerPrintCommand{
    .Name = "poker print",
    .Operands = kOperands,
    .Options = kOptions,
    .Summary = "Prints the list of a poker order into a PDF file.",
    .Draws = true,
    .Prepare = TaskOf<ReadPokerPrintOptions, PokerPrint>};

}  // namespace morvane::cli
