#include "shell/handed_on.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cstdint>
#include <optional>
#include <span>

#include "files/format_table.h"
#include "platform/files.h"
#include "platform/paths.h"
#include "platform/user_folders.h"
#include "text/text.h"

namespace morvane::shell {
namespace {

enum class Tells : std::uint8_t {
  kAll,      ///< the whole line
  kNumbers,  ///< numbers, a time, and how it went
  kCode,     ///< the name of what failed in the program's code
  kEnding,   ///< the ending of the file's name
  kItself,   ///< what happened, and no more
};

struct LineKind {
  std::string_view Head;
  Tells What;
};
constexpr std::array kLineKinds{
    LineKind{"---", Tells::kItself},
    LineKind{"Start ", Tells::kItself},  // its time seeds poker deals
    LineKind{"History records: ", Tells::kNumbers},
    LineKind{" File-New: ", Tells::kNumbers},
    LineKind{" File-Load: ", Tells::kNumbers},
    LineKind{" File-Import: ", Tells::kNumbers},
    LineKind{" File-Save: ", Tells::kNumbers},
    LineKind{" Edit: ", Tells::kNumbers},
    LineKind{" Analyze: ", Tells::kNumbers},
    LineKind{" Deal: ", Tells::kNumbers},
    LineKind{" Read: ", Tells::kNumbers},
    LineKind{" Poker: ", Tells::kNumbers},
    LineKind{" Maintenance: ", Tells::kNumbers},
    LineKind{" Exit: ", Tells::kNumbers},
    LineKind{" USB Initialization Error: ", Tells::kNumbers},
    LineKind{" Unexpected end of the program", Tells::kItself},
    LineKind{" Unexpected error: ", Tells::kCode},
    LineKind{" Unsaved Board Set of ", Tells::kNumbers},
    LineKind{"  S/N:", Tells::kAll},
    LineKind{" Machine: ", Tells::kAll},
    LineKind{"  Load: ", Tells::kEnding},
    LineKind{"  Import: ", Tells::kEnding},
    LineKind{"  Save: ", Tells::kEnding},
    LineKind{"  Print parameters: ", Tells::kItself},
    LineKind{"  Sort: ", Tells::kNumbers},
    LineKind{"  Poker: ", Tells::kNumbers},
    LineKind{"   AutoSetup ", Tells::kAll},
    LineKind{"   Board Switch Calibration: ", Tells::kNumbers},
    LineKind{"   Firmware file open: ", Tells::kEnding},
    LineKind{"   Firmware download", Tells::kAll},
    LineKind{"    Trace: ", Tells::kItself},
};

/// The message boxes whose texts tell of the program and of its surroundings alone.
constexpr std::array<std::string_view, 22> kOpenBoxes{"Analyze Error",
                                                      "Application Start Error",
                                                      "Communication Error",
                                                      "Dealing Error",
                                                      "Download Error",
                                                      "Driver Update Information",
                                                      "Edit Error",
                                                      "Exit Error",
                                                      "Guide",
                                                      "History Error",
                                                      "Log Error",
                                                      "Maintenance Error",
                                                      "New Error",
                                                      "Preferences Error",
                                                      "Random Pool Error",
                                                      "Read Error",
                                                      "Reading Error",
                                                      "Save Error",
                                                      "Settings Error",
                                                      "Sort Error",
                                                      "USB Connection",
                                                      "Unsaved Board Set"};

/// A text ends with a number or with how it went, and what is read of a pack stands behind that.
constexpr std::array<std::string_view, 5> kWordsAmongNumbers{"AM", "PM", "Deal", "run", "read"};
constexpr std::array<std::string_view, 4> kLastWords{"OK", "loaded", "deleted", "left"};

/// Of the files that the program reads and writes besides sets of boards.
constexpr std::array<std::string_view, 6> kOtherEndings{"ADC", "C", "PDF", "PKR", "PNG", "TXT"};

constexpr std::array<std::string_view, 2> kFileKeys{",store=", ",pack="};

bool IsOneOf(std::string_view word, std::span<const std::string_view> words) {
  return std::find(words.begin(), words.end(), word) != words.end();
}

/// The length of the one that stands there; 0: none does.
std::size_t LengthAt(std::string_view text, std::span<const std::string_view> words) {
  const auto at = std::find_if(words.begin(), words.end(),
                               [text](std::string_view word) { return text.starts_with(word); });
  return at == words.end() ? 0 : at->size();
}

/// Numbers with a few words among them, and how it went.
std::string_view NumbersOf(std::string_view text) {
  std::size_t end = 0;
  for (std::size_t word = 1; word > 0; end += word) {
    end = std::min(text.find_first_not_of("0123456789,.:- ", end), text.size());
    word = LengthAt(text.substr(end), kWordsAmongNumbers);
  }
  return text.substr(0, end + LengthAt(text.substr(end), kLastWords));
}

/// "*.pbn"; an ending that is none of ours may be a part of the name.
std::string EndingOf(std::string_view path) {
  const std::string name = FileTitle(path);
  const std::string ending = files::ExtensionOf(name);
  const bool known = files::FindFormat(ending) != nullptr || IsOneOf(ending, kOtherEndings);
  return known ? "*." + LowerCase(ending) : "*";
}

/// "vector::_M_range_check", by which the libraries name what failed; nothing of another text.
std::string_view CodeNameOf(std::string_view text) {
  const std::string_view word = text.substr(0, text.find_first_of(" ("));
  const bool plain = std::all_of(word.begin(), word.end(), [](unsigned char c) {
    return std::isalnum(c) != 0 || c == '_' || c == ':';
  });
  return plain && word.find("::") != std::string_view::npos ? word : std::string_view();
}

/// "  005 : 1,0 13,13,13,13 OK", what the machine told of board 5.
bool IsRunOfBoard(std::string_view line) {
  constexpr std::size_t kNumberEnd = 5;
  const auto isDigit = [](unsigned char c) { return std::isdigit(c) != 0; };
  return line.size() > kNumberEnd && line.starts_with("  ") &&
         std::all_of(line.begin() + 2, line.begin() + kNumberEnd, isDigit) &&
         line.substr(kNumberEnd).starts_with(" : ");
}

std::string BoxToHandOn(std::string_view line) {
  constexpr std::string_view kIndent = "    ";
  if (!line.starts_with(kIndent)) return {};
  const std::string_view box = line.substr(kIndent.size());
  const std::string_view caption = box.substr(0, box.find(": "));
  return IsOneOf(caption, kOpenBoxes) ? WithoutPaths(line) : "";
}

std::string Told(std::string_view line, const LineKind& kind) {
  const std::string_view rest = line.substr(kind.Head.size());
  const std::string head(kind.Head);
  if (kind.What == Tells::kAll) return std::string(line);
  if (kind.What == Tells::kNumbers) return head + std::string(NumbersOf(rest));
  if (kind.What == Tells::kCode) return head + std::string(CodeNameOf(rest));
  return kind.What == Tells::kEnding ? head + EndingOf(rest) : head;
}

/// "/srv" and "C:\"; "12/32" is none.
bool BeginsPath(std::string_view text, std::size_t at) {
  constexpr std::string_view kSeparators = "/\\";
  const bool first = at == 0 || std::string_view(" \"'(=:").find(text[at - 1]) != std::string::npos;
  if (!first) return false;
  if (kSeparators.find(text[at]) != std::string::npos) return !text.substr(at).starts_with("/ ");
  return text.substr(at + 1, 1) == ":" && text.size() > at + 2 &&
         kSeparators.find(text[at + 2]) != std::string::npos;
}

bool IsDevice(std::string_view path) { return path.starts_with("/dev/"); }

std::size_t FindPath(std::string_view text, std::size_t from) {
  while (from < text.size() && (!BeginsPath(text, from) || IsDevice(text.substr(from)))) ++from;
  return from;
}

/// Of a simulated machine: up to its first file, whose name may hold what looks like a further key.
std::string WithoutFiles(std::string_view machine) {
  std::size_t end = machine.size();
  for (const std::string_view key : kFileKeys) {
    if (const std::size_t at = machine.substr(0, end).find(key); at != std::string_view::npos) {
      end = at + key.size();
    }
  }
  return std::string(machine.substr(0, end)) + (end < machine.size() ? "*" : "");
}

/// The rest of `path` behind `folder`; nothing when it does not lie there.
std::optional<std::string> Behind(std::string_view folder, std::string_view path) {
  if (folder.size() < 2 || !path.starts_with(folder)) return std::nullopt;  // "/" is the root's
  const std::string_view rest = path.substr(folder.size());
  const bool ends = rest.empty() || kPathSeparators.find(rest.front()) != std::string_view::npos;
  return ends ? std::optional<std::string>(rest) : std::nullopt;
}

}  // namespace

std::string LogLineToHandOn(std::string_view line) {
  const auto* kind = std::find_if(kLineKinds.begin(), kLineKinds.end(), [&](const LineKind& each) {
    return line.starts_with(each.Head);
  });
  if (kind != kLineKinds.end()) return Told(line, *kind);
  if (IsRunOfBoard(line)) return std::string(NumbersOf(line));
  return BoxToHandOn(line);
}

std::string MachineToHandOn(std::string_view machine) {
  constexpr std::string_view kSerial = "serial:";
  constexpr std::string_view kReplay = "replay:";
  if (machine.starts_with(kReplay)) return std::string(kReplay) + "*";
  if (machine.starts_with(kSerial) && !IsDevice(machine.substr(kSerial.size()))) {
    return std::string(kSerial) + "*";
  }
  return WithoutFiles(machine);
}

std::string WithoutPaths(std::string_view text) {
  std::string kept;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t path = FindPath(text, at);
    kept += text.substr(at, path - at);
    if (path == text.size()) break;
    kept += '*';
    at = std::min(text.find(" : ", path), text.size());
  }
  return kept;
}

std::string PlaceToHandOn(const std::string& path) {
  if (path.empty()) return path;
  const std::string home = HomeFolder();
  auto rest = Behind(home, path);
  if (!rest) rest = Behind(TruePath(home), TruePath(path));
  return rest ? "~" + *rest : "outside the home folder";
}

std::string ValueToHandOn(std::string_view value) {
  constexpr std::size_t kMost = 40;
  std::string plain(value.substr(0, kMost));
  std::replace_if(
      plain.begin(), plain.end(), [](char c) { return c < ' ' || c > '~'; }, '?');
  return plain;
}

}  // namespace morvane::shell
