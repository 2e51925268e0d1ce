#include "files/failure_reports.h"

#include "program/program.h"

namespace morvane::files {
namespace {

std::string ErrorText(const std::string& text, const RuntimeError& error) {
  return Fill(Fill(text, "***", std::to_string(error.Number)), "###", error.Description);
}

}  // namespace

std::string FaultText(const FormatFault& fault) {
  const std::string text = Fill(fault.Text, "###", std::to_string(fault.At));
  // The catalogue has one text for both.
  return fault.By == FormatFault::Counting::kLines ? Fill(text, "record", "line") : text;
}

void ReportFormatFault(Program& program, const FormatFault& fault) {
  if (fault.Text.empty()) return;
  program.Status("Load operation aborted");
  program.ShowMessage(FaultText(fault), kOkCritical, "Load Error");
}

void ReportLoadFailure(Program& program, const RuntimeError& error) {
  // Every later failure shows the first one's number and description: required.
  program.Texts.Msg008 = ErrorText(program.Texts.Msg008, error);
  program.ShowMessage(program.Texts.Msg008, kOkCritical, "Load Error");
}

void ReportSaveFailure(Program& program, const RuntimeError& error) {
  program.ShowMessage(ErrorText(program.Texts.Msg007, error), kOkCritical, "Save Error");
}

}  // namespace morvane::files
