#pragma once

#include <string>

namespace morvane {
class Program;
}

namespace morvane::files {

/// The Load command: asks whether to save first, takes `startFile` or asks for a file, loads it.
/// `startFile` is empty afterwards, however the command ends. Whether a set was loaded.
bool LoadBoardSet(Program& program, std::string& startFile);

/// Loads `path` in place of the current set. All or nothing: after a failure, which the operator
/// has been told, the set is empty. Whether the set was loaded.
bool LoadFile(Program& program, const std::string& path);

}  // namespace morvane::files
