#pragma once

#include <string>

#include "text/text_encoding.h"

namespace morvane {

/// The blanks that make UTF-8 `text` `width` characters; none for a longer one.
[[nodiscard]] inline std::string BlanksTo(std::size_t width, const std::string& text) {
  const std::size_t has = CharacterCount(text);
  return std::string(has < width ? width - has : 0, ' ');
}

/// `text` behind them.
[[nodiscard]] inline std::string RightAligned(const std::string& text, std::size_t width) {
  return BlanksTo(width, text) + text;
}

/// `text` before them.
[[nodiscard]] inline std::string LeftAligned(const std::string& text, std::size_t width) {
  return text + BlanksTo(width, text);
}

}  // namespace morvane
