#pragma once

#include <functional>
#include <optional>
#include <string>

#include "platform/printer.h"
#include "print/print_options.h"
#include "program/program.h"

namespace morvane::print {

// The runs of printing; what they print has been checked. `boardDone` is called behind
// each board and says whether to go on. The operator has been told of a run that is false, unless
// it was the operator or the end of the program who ended it.

/// Pages to the current printer, hand records or score cards as the job says.
bool PrintPages(Program& program, const PrintOptions& job, const std::function<bool()>& boardDone);

/// The same pages into a PDF file, which is asked for.
bool SavePages(Program& program, const PrintOptions& job, const std::function<bool()>& boardDone);

/// The same pages into the PDF file `path`.
bool WritePdf(Program& program, const PrintOptions& job, const std::string& path, Paper sheet,
              const std::function<bool()>& boardDone);

/// What `Printer::Pdf` has made into the file `path`; nothing means that there were no fonts.
/// False: the operator has been told.
bool SavePdf(Program& program, const std::string& path, const std::string& bytes);

/// The pages in the preview's window, from where the operator may `print` or `save` them.
void PreviewPages(Program& program, const PrintOptions& job, const std::function<void()>& print,
                  const std::function<void()>& save);

/// The printer's dialog, which starts with `copies`. Those that were confirmed; nothing when it was
/// cancelled, or cannot come up, which the operator has been told.
std::optional<int> SetUpPrinter(Program& program, int copies);

}  // namespace morvane::print
