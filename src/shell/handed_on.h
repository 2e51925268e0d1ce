#pragma once

#include <string>
#include <string_view>

// What may be handed to anybody: no deal can be told from it, no name of a file and no folder but
// those of devices.

namespace morvane::shell {

/// Of a line of the log; empty: nothing. Only lines of kinds that are known to tell of no deal are
/// handed on, and of these no more than is known.
[[nodiscard]] std::string LogLineToHandOn(std::string_view line);

/// Of the way to the machine, as the command line names it; a "*" for a file.
[[nodiscard]] std::string MachineToHandOn(std::string_view machine);

/// Of a text of our own: a path in it becomes a "*", up to the end of its line.
[[nodiscard]] std::string WithoutPaths(std::string_view text);

/// Of where a file or folder of the program lies: from the user's home on, which is a "~".
[[nodiscard]] std::string PlaceToHandOn(const std::string& path);

/// Of a value that anybody may have written: the start of it, in plain characters.
[[nodiscard]] std::string ValueToHandOn(std::string_view value);

}  // namespace morvane::shell
