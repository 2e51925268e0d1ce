#include "poker/poker_print.h"

#include "poker/poker_list.h"
#include "print/print_failure.h"
#include "print/print_run.h"
#include "program/program.h"
#include "text/text.h"

namespace morvane::poker {
namespace {

bool IsThere(Program& program, const PokerOrder& order) {
  if (order.PokerOrderExists) return true;
  program.ShowMessage("    Nothing to print!    ", kOkExclamation, "Poker Dealing");
  return false;
}

/// What the printer's queue and a PDF's reader call it.
std::string TitleOf(const PokerOrder& order) {
  return order.Poker_Event.empty() ? "Poker order" : WithoutControls(order.Poker_Event);
}

/// `target`: the printer or a file.
void LogRun(Log& log, const std::string& target) {
  log.WriteLine("   Print poker order to: " + target);
}

}  // namespace

bool PrintPokerOrder(Program& program, const PokerOrder& order, int copies) {
  if (!IsThere(program, order)) return false;
  LogRun(program.Log, program.ThePrinter.DeviceName());
  const auto goOn = [&program] { return program.Loop.PumpOften(); };
  const auto error = program.ThePrinter.Print(
      {TitleOf(order), copies}, [&](Canvas& canvas) { DrawPokerList(canvas, order, goOn); });
  if (program.Loop.Quitting()) return false;
  if (error) print::ReportPrintFailure(program, *error);
  return !error;
}

int SetUpPrinter(Program& program, int copies) {
  return print::SetUpPrinter(program, copies).value_or(copies);
}

bool WritePokerPdf(Program& program, const PokerOrder& order, const std::string& path, Paper sheet,
                   const std::function<bool()>& dealDone) {
  if (!IsThere(program, order)) return false;
  LogRun(program.Log, path);
  bool whole = true;
  const std::string pdf = program.ThePrinter.Pdf({TitleOf(order), 1, sheet}, [&](Canvas& canvas) {
    whole = DrawPokerList(canvas, order, dealDone);
  });
  return whole && print::SavePdf(program, path, pdf);
}

}  // namespace morvane::poker
