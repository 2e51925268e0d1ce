#pragma once

#include <string>

namespace morvane {
class Program;
struct BoardSet;
}  // namespace morvane
namespace morvane::history {
class History;
}

namespace morvane::files {

/// The Save command (`menuSave_Click`): asks for a file and saves the set to it. A save that was
/// cancelled or failed leaves `BoardSetChanged` as it was. Whether it was saved.
bool SaveBoardSet(Program& program, history::History& history);

/// Saves the set, which must exist, to `path` and adds it to the history. False: the file is as it
/// was, the operator has been told or has answered so.
bool SaveFile(Program& program, history::History& history, const std::string& path);

/// What `SaveFile` asks before it writes, asked of a set that is still to be made: whether there is
/// such a format, whether it can hold `set`, and whether the file can be written. False: the
/// operator has been told or has answered so.
[[nodiscard]] bool MaySaveFile(Program& program, const BoardSet& set, const std::string& path);

}  // namespace morvane::files
