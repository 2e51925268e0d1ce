#pragma once

#include <iostream>
#include <string>

namespace morvane {

/// Writes `text` to standard output. False, and told, where nothing can be written there; `program`
/// says it.
[[nodiscard]] inline bool WriteOut(const std::string& program, const std::string& text) {
  if (std::cout << text << std::flush) return true;
  std::cerr << program << ": standard output cannot be written\n";
  return false;
}

}  // namespace morvane
