#pragma once

#include <optional>
#include <string>

#include "files/import_report.h"

namespace morvane {
class Program;
}
namespace morvane::history {
class History;
}

namespace morvane::files {

/// The Import command: the flow of Load with a reader that takes PBN of any program. It ends with a
/// report, which is given back too; nothing when no set was imported. `pending` is a file to take
/// without asking for one.
std::optional<ImportReport> ImportBoardSet(Program& program, history::History& history,
                                           const std::string& pending = {});

/// Imports `path` in place of the current set. Without a board to take the current set stays.
/// The report of what was imported; the operator has been told in either case.
std::optional<ImportReport> ImportFile(Program& program, history::History& history,
                                       const std::string& path);

}  // namespace morvane::files
