#pragma once

#include <string>

namespace morvane {

class Program;

/// Whether there is a board set. Where there is none, the status bar tells it, and a box of this
/// title.
[[nodiscard]] bool HasSet(Program& program, const std::string& title);

}  // namespace morvane
