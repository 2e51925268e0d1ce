#include "text/box_text.h"

#include "text/text.h"

namespace morvane {

std::string Fill(std::string text, std::string_view placeholder, std::string_view value) {
  std::size_t at = text.find(placeholder);
  if (at == std::string::npos) return text;
  // Built anew, since a text that quotes a hostile file may hold millions of them.
  std::string filled;
  std::size_t start = 0;
  for (; at != std::string::npos; at = text.find(placeholder, start)) {
    filled.append(text, start, at - start).append(value);
    start = at + placeholder.size();
  }
  return filled.append(text, start);
}

std::string WithoutPadding(std::string_view text) {
  std::string plain;
  while (true) {
    const std::size_t end = text.find(kCrLf);
    plain += Trim(text.substr(0, end));
    if (end == std::string_view::npos) return Trim(plain);
    plain += '\n';
    text.remove_prefix(end + kCrLf.size());
  }
}

std::string OneLine(std::string_view text) {
  return Fill(Fill(std::string(text), kCrLf, " : "), "      ", "");
}

}  // namespace morvane
