#pragma once

#include <string>

namespace morvane {
class Program;
}
namespace morvane::history {
class History;
}

namespace morvane::files {

/// The Import command: the flow of Load with a reader that takes PBN of any program. It ends with a
/// report. Whether a set was imported.
bool ImportBoardSet(Program& program, history::History& history);

/// Imports `path` in place of the current set. Without a board to take the current set stays.
/// Whether a set was imported; the operator has been told in either case.
bool ImportFile(Program& program, history::History& history, const std::string& path);

}  // namespace morvane::files
