#pragma once

#include <string>

namespace morvane {
class Program;
}
namespace morvane::history {
class History;
}

namespace morvane::files {

struct Format;
class NumberDialog;

/// The Load command: asks whether to save first, takes `startFile` or asks for a file, loads it.
/// `startFile` is empty afterwards, however the command ends. Whether a set was loaded.
bool LoadBoardSet(Program& program, history::History& history, NumberDialog& dialog,
                  std::string& startFile);

/// Loads `path` in place of the current set, and adds it to the history unless a file of that title
/// stands there. All or nothing: after a failure, which the operator has been told where there are
/// words for it, the set is empty. Whether the set was loaded.
bool LoadFile(Program& program, history::History& history, NumberDialog& dialog,
              const std::string& path);

/// Fills the set, which is clear, from `path` as a file of `format`, and gives its boards their
/// numbers. False: the set is not to be kept.
[[nodiscard]] bool ReadSet(Program& program, NumberDialog& dialog, const Format& format,
                           const std::string& path);

}  // namespace morvane::files
