#include "shell/print_flow.h"

#include <utility>

#include "print/print_failure.h"
#include "program/has_set.h"

namespace morvane::shell {

void PrintFlow(Program& program, print::HandRecordDialog& windows,
               print::HandRecord::Download download) {
  if (HasSet(program, print::kPrintingError)) {
    program.Status("Printing");
    print::HandRecord dialog(program, std::move(download));
    if (!windows.ShowHandRecord(dialog)) {
      program.ShowMessage("      This program has no window for printing.      ", kOkCritical,
                          print::kPrintingError);
    }
  }
  program.Status("Ready");
}

}  // namespace morvane::shell
