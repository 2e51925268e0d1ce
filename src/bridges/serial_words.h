#pragma once

#include <string>

namespace morvane::bridges {

// What there is to tell the operator of the serial device at `path` that could not be opened. Whole
// sentences, a line each.

/// It is not there, or is no serial device; which ones there are.
[[nodiscard]] std::string WordsOfMissing(const std::string& path);
/// It is there and could not be opened; `why` in the system's words.
[[nodiscard]] std::string WordsOfFailed(const std::string& path, const std::string& why);
/// It is there, and the system has refused it: another program has it, or this user has no right to
/// it.
[[nodiscard]] std::string WordsOfRefused(const std::string& path);
/// The program of this name has it, and would share every byte of it.
[[nodiscard]] std::string WordsOfHeld(const std::string& path, const std::string& program);

}  // namespace morvane::bridges
