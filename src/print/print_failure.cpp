#include "print/print_failure.h"

#include <string>

#include "program/program.h"

namespace morvane::print {

void ReportPrintFailure(Program& program, const RuntimeError& error) {
  const std::string text = Fill(program.Texts.Msg079, "***", std::to_string(error.Number));
  program.ShowMessage(Fill(text, "###", error.Description), kOkCritical, kPrintingError);
}

}  // namespace morvane::print
