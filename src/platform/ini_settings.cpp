#include "platform/ini_settings.h"

#define SI_NO_CONVERSION   // the texts are UTF-8 in the file and in memory
#define SI_IMPLEMENTATION  // Debian's header leaves the bodies to a library otherwise
#include <SimpleIni.h>

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <optional>
#include <string_view>

#include "platform/file_lock.h"
#include "platform/files.h"

namespace morvane {
namespace {

/// Names compare without regard to case, as in the registry.
using Ini = CSimpleIniTempl<char, SI_GenericNoCase<char>, SI_ConvertA<char>>;

// A value that the file's plain form would lose (blanks at its ends, line ends, an opening quote)
// stands in double quotes, with these escapes.
struct Escape {
  char Plain;
  char Letter;
};
constexpr Escape kEscapes[] = {{'\\', '\\'}, {'"', '"'}, {'\n', 'n'}, {'\r', 'r'}, {'\0', '0'}};

bool NeedsQuotes(std::string_view value) {
  if (value.empty()) return false;
  constexpr std::string_view kBlanks = " \t";
  constexpr std::string_view kLineEnds("\r\n\0", 3);
  return kBlanks.find(value.front()) != std::string_view::npos ||
         kBlanks.find(value.back()) != std::string_view::npos || value.front() == '"' ||
         value.find_first_of(kLineEnds) != std::string_view::npos;
}

std::string Quoted(std::string_view value) {
  if (!NeedsQuotes(value)) return std::string(value);
  std::string text = "\"";
  for (const char c : value) {
    const auto* escape =
        std::find_if(std::begin(kEscapes), std::end(kEscapes),
                     [c](const Escape& candidate) { return candidate.Plain == c; });
    if (escape == std::end(kEscapes)) {
      text += c;
    } else {
      text.append({'\\', escape->Letter});
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
    if (escape == std::end(kEscapes)) {
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

std::string Legible(std::string_view bytes) {
  constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
  if (bytes.starts_with(kUtf8Mark)) bytes.remove_prefix(kUtf8Mark.size());
  std::string text;
  while (!bytes.empty()) {
    const std::size_t end = std::min(bytes.find_first_of("\r\n"), bytes.size());
    text.append(LegibleLine(bytes.substr(0, end))).append("\n");
    bytes.remove_prefix(std::min(end + 1, bytes.size()));
  }
  return text;
}

/// False when there is something that cannot be read; a missing file is an empty store.
bool Load(const std::string& path, Ini& ini) {
  std::error_code failure;
  const auto status = std::filesystem::status(PathOfUtf8(path), failure);
  if (status.type() == std::filesystem::file_type::not_found) return true;
  if (!std::filesystem::is_regular_file(status)) return false;
  std::string bytes;
  if (ReadFile(path, bytes)) return false;
  return ini.LoadData(Legible(bytes)) >= 0;
}

std::optional<FileLock> LockOf(const std::string& path) { return FileLock::Wait(path + ".lock"); }

}  // namespace

std::string IniSettings::Get(const SettingKey& key) const {
  const std::string path = FileBehind(path_);
  const auto lock = LockOf(path);  // a folder that cannot be written can still be read
  Ini ini;
  if (!Load(path, ini)) return std::string(key.Default);
  const char* text =
      ini.GetValue(std::string(key.Section).c_str(), std::string(key.Name).c_str(), nullptr);
  return text == nullptr ? std::string(key.Default) : Unquoted(text);
}

bool IniSettings::Set(const SettingKey& key, std::string_view value) {
  const std::string path = FileBehind(path_);
  std::error_code ignored;  // the lock file tells whether the folder can be written
  std::filesystem::create_directories(PathOfUtf8(FolderOf(path)), ignored);
  const auto lock = LockOf(path);
  Ini ini;
  if (!lock || !Load(path, ini)) return false;
  std::string text;
  return ini.SetValue(std::string(key.Section).c_str(), std::string(key.Name).c_str(),
                      Quoted(value).c_str()) >= 0 &&
         ini.Save(text) >= 0 && !WriteLockedFile(path, text, NewFile::kPrivate);
}

}  // namespace morvane
