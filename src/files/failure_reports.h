#pragma once

#include <string>

#include "platform/runtime_error.h"

namespace morvane {
class Program;
}

namespace morvane::files {

/// What is wrong in a file, and the line or record (from 1) where it stands. `Text` is a text of
/// the catalogue in which only the placeholder of that number is still to be filled; an empty one
/// means that the load fails without a word.
struct FormatFault {
  enum class Counting { kLines, kRecords };

  std::string Text;
  int At = 0;
  Counting By = Counting::kLines;
};

/// The text that the operator sees for `fault`.
[[nodiscard]] std::string FaultText(const FormatFault& fault);

/// Tells the operator that the file is not what its format asks for; nothing for an empty text.
void ReportFormatFault(Program& program, const FormatFault& fault);
/// Tells the operator that the system failed to read or to write.
void ReportLoadFailure(Program& program, const RuntimeError& error);
void ReportSaveFailure(Program& program, const RuntimeError& error);

}  // namespace morvane::files
