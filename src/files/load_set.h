#pragma once

#include <string>

namespace morvane {
class Program;
}
namespace morvane::history {
class History;
}

namespace morvane::files {

/// The Load command: asks whether to save first, takes `startFile` or asks for a file, loads it.
/// `startFile` is empty afterwards, however the command ends. Whether a set was loaded.
bool LoadBoardSet(Program& program, history::History& history, std::string& startFile);

/// Loads `path` in place of the current set, and adds it to the history unless a file of that title
/// stands there. All or nothing: after a failure, which the operator has been told, the set is empty.
/// Whether the set was loaded.
bool LoadFile(Program& program, history::History& history, const std::string& path);

}  // namespace morvane::files
