#include "files/import_event_text.h"

#include "text/text.h"
#include "text/text_encoding.h"

namespace morvane::files {
namespace {

/// What stands in an event text for a character that PBN has a use for; empty for any other.
std::string_view InPlaceOf(std::string_view character) {
  switch (character[0]) {
    case '[':
    case '{':
      return "(";
    case ']':
    case '}':
      return ")";
    case '"':
      return "'";
    case ';':
      return ",";
    case '\\':
      return "/";
    case '%':
      return "pct";
    default:
      return static_cast<unsigned char>(character[0]) < ' ' || character[0] == '\x7F' ? " " : "";
  }
}

}  // namespace

EventText MakeEventText(std::string_view value) {
  EventText made;
  while (!value.empty()) {
    const std::string_view character = CharacterAt(value, 0);
    const std::string_view other = InPlaceOf(character);
    const std::string_view put = other.empty() ? character : other;
    value.remove_prefix(character.size());
    made.Replaced = made.Replaced || !other.empty();
    // In front a mark would be taken for a repeat mark, and a blank has no use.
    if (made.Text.empty() && (put == "#" || put == " ")) {
      made.Replaced = made.Replaced || put == "#";
      continue;
    }
    made.Cut = CharacterCount(made.Text) + CharacterCount(put) > kLongestEventText;
    if (made.Cut) break;
    made.Text += put;
  }
  made.Text = Trim(made.Text);
  return made;
}

}  // namespace morvane::files
