#pragma once

#include <string>

namespace morvane {

/// `text` behind as many blanks as make it `width` characters; longer ones stay as they are.
[[nodiscard]] inline std::string RightAligned(const std::string& text, std::size_t width) {
  return std::string(text.size() < width ? width - text.size() : 0, ' ') + text;
}

/// `text` before as many blanks.
[[nodiscard]] inline std::string LeftAligned(const std::string& text, std::size_t width) {
  return text + std::string(text.size() < width ? width - text.size() : 0, ' ');
}

}  // namespace morvane
