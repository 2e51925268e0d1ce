#pragma once

#include <string>

namespace morvane {
class Program;
}

namespace morvane::files {

/// The Save command (`menuSave_Click`): asks for a file and saves the set to it. A save that was
/// cancelled or failed leaves `BoardSetChanged` as it was. Whether it was saved.
bool SaveBoardSet(Program& program);

/// Saves the set, which must exist, to `path`. False: the file is as it was, the operator has been
/// told or has answered so.
bool SaveFile(Program& program, const std::string& path);

}  // namespace morvane::files
