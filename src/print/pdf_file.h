#pragma once

#include <functional>
#include <string>

#include "platform/printer.h"
#include "print/print_options.h"

namespace morvane {
class Program;
}

namespace morvane::print {

/// Writes the pages, hand records or score cards, into the file; the boards are in the set.
/// `boardDone` is called behind each and says whether to go on. False: nothing was written, because
/// it ended it or because of a failure that the operator has been told.
bool WritePdf(Program& program, const PrintOptions& options, const std::string& path, Paper sheet,
              const std::function<bool()>& boardDone);

}  // namespace morvane::print
