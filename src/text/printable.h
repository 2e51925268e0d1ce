#pragma once

#include <algorithm>
#include <string>

namespace morvane {

/// UTF-8 `text` without what could command a terminal: a '?' for each control character but LF.
[[nodiscard]] inline std::string Printable(const std::string& text) {
  std::string shown;
  for (std::size_t at = 0; at < text.size(); ++at) {
    const auto c = static_cast<unsigned char>(text[at]);
    const auto next = static_cast<unsigned char>(at + 1 < text.size() ? text[at + 1] : 0);
    const bool secondSet = c == 0xC2 && next >= 0x80 && next < 0xA0;  // U+0080 to U+009F
    const bool commands = (c < ' ' && c != '\n') || c == 0x7F || secondSet;
    shown += commands ? '?' : text[at];
    if (secondSet) ++at;
  }
  return shown;
}

/// The same for a text that is to stand in one line: a '?' for LF too.
[[nodiscard]] inline std::string PrintableLine(const std::string& text) {
  std::string shown = Printable(text);
  std::replace(shown.begin(), shown.end(), '\n', '?');
  return shown;
}

}  // namespace morvane
