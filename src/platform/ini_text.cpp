#include "platform/ini_text.h"

#define SI_NO_CONVERSION   // the texts are UTF-8 in the file and in memory
#define SI_IMPLEMENTATION  // Debian's header leaves the bodies to a library otherwise
#include <SimpleIni.h>

#include <algorithm>
#include <iterator>

namespace morvane {
namespace {

/// Names compare without regard to case, as in the registry.
using Ini = CSimpleIniTempl<char, SI_GenericNoCase<char>, SI_ConvertA<char>>;

// A value that the file's plain form would lose (blanks at its ends, line ends, an opening quote),
// or that would make it look like no text, stands in double quotes, with these escapes. Any other
// character that steers something is "\x" and its two digits.
struct Escape {
  char Plain;
  char Letter;
};
constexpr Escape kEscapes[] = {{'\\', '\\'}, {'"', '"'}, {'\n', 'n'}, {'\r', 'r'}, {'\0', '0'}};

constexpr std::string_view kDigits = "0123456789ABCDEF";

bool Steers(char c) { return (c >= 0 && c < ' ' && c != '\t') || c == '\x7F'; }

std::string Numbered(char c) {
  const auto code = static_cast<unsigned char>(c);
  return {'\\', 'x', kDigits[code / 16], kDigits[code % 16]};
}

/// The character that a "\x" with two digits at the front of `text` stands for.
std::optional<char> CharacterOf(std::string_view text) {
  if (text.size() < 4 || !text.starts_with("\\x")) return std::nullopt;
  const std::size_t high = kDigits.find(text[2]);
  const std::size_t low = kDigits.find(text[3]);
  if (high >= 8 || low == std::string_view::npos) return std::nullopt;
  const char c = static_cast<char>(high * 16 + low);
  return Steers(c) ? std::optional(c) : std::nullopt;
}

bool NeedsQuotes(std::string_view value) {
  if (value.empty()) return false;
  constexpr std::string_view kBlanks = " \t";
  return kBlanks.find(value.front()) != std::string_view::npos ||
         kBlanks.find(value.back()) != std::string_view::npos || value.front() == '"' ||
         std::any_of(value.begin(), value.end(), Steers);
}

std::string Quoted(std::string_view value) {
  if (!NeedsQuotes(value)) return std::string(value);
  std::string text = "\"";
  for (const char c : value) {
    const auto* escape =
        std::find_if(std::begin(kEscapes), std::end(kEscapes),
                     [c](const Escape& candidate) { return candidate.Plain == c; });
    if (escape != std::end(kEscapes)) {
      text.append({'\\', escape->Letter});
    } else {
      text += Steers(c) ? Numbered(c) : std::string(1, c);
    }
  }
  return text + '"';
}

std::string Unquoted(std::string_view text) {
  if (text.size() < 2 || text.front() != '"' || text.back() != '"') return std::string(text);
  text = text.substr(1, text.size() - 2);
  std::string value;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char letter = text[i] == '\\' && i + 1 < text.size() ? text[i + 1] : '\0';
    const auto* escape =
        std::find_if(std::begin(kEscapes), std::end(kEscapes),
                     [letter](const Escape& candidate) { return candidate.Letter == letter; });
    const auto numbered = CharacterOf(text.substr(i));
    if (numbered) {
      value += *numbered;
      i += 3;
    } else if (escape == std::end(kEscapes)) {
      value += text[i];
    } else {
      value += escape->Plain;
      ++i;
    }
  }
  return value;
}

/// What can be read of a line. The parser stops at a NUL and takes what follows an unclosed "[" as
/// part of the section's name: a section whose name is lost becomes a nameless one.
std::string_view LegibleLine(std::string_view line) {
  constexpr std::string_view kLostSection = "[]";
  const std::size_t first = std::min(line.find_first_not_of(" \t"), line.size());
  const bool section = line.substr(first).starts_with('[');
  const std::size_t nul = line.rfind('\0');
  if (nul == std::string_view::npos) {
    return section && line.find(']') == std::string_view::npos ? kLostSection : line;
  }
  const std::string_view behind = line.substr(nul + 1);
  if (behind.starts_with('[')) return LegibleLine(behind);
  return section ? kLostSection : std::string_view();
}

/// A byte-order mark belongs to no name. In the middle of a damaged file it may begin a line that
/// comes to stand first when the file is written.
std::string_view WithoutMarks(std::string_view line) {
  constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
  while (true) {
    const std::size_t first = std::min(line.find_first_not_of(" \t"), line.size());
    if (!line.substr(first).starts_with(kUtf8Mark)) return line;
    line.remove_prefix(first + kUtf8Mark.size());
  }
}

/// A line end of two characters is one: a blank line between comments would stay, and double.
std::string Legible(std::string_view bytes) {
  std::string text;
  while (!bytes.empty()) {
    const std::size_t end = std::min(bytes.find_first_of("\r\n"), bytes.size());
    text.append(LegibleLine(WithoutMarks(bytes.substr(0, end)))).append("\n");
    const std::size_t ended = bytes.substr(end).starts_with("\r\n") ? 2 : 1;
    bytes.remove_prefix(std::min(end + ended, bytes.size()));
  }
  return text;
}

bool Load(std::string_view content, Ini& ini) { return ini.LoadData(Legible(content)) >= 0; }

}  // namespace

std::optional<std::string> IniValue(std::string_view content, const SettingKey& key) {
  Ini ini;
  if (!Load(content, ini)) return std::nullopt;
  const char* text =
      ini.GetValue(std::string(key.Section).c_str(), std::string(key.Name).c_str(), nullptr);
  if (text == nullptr) return std::nullopt;
  return Unquoted(text);
}

std::optional<std::string> WithIniValue(std::string_view content, const SettingKey& key,
                                        std::string_view value) {
  Ini ini;
  std::string text;
  const bool made = Load(content, ini) &&
                    ini.SetValue(std::string(key.Section).c_str(), std::string(key.Name).c_str(),
                                 Quoted(value).c_str()) >= 0 &&
                    ini.Save(text) >= 0;
  if (!made) return std::nullopt;
  return text;
}

}  // namespace morvane
