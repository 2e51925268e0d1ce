#include "shell/diagnosis.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <deque>
#include <utility>

#include "platform/files.h"
#include "platform/user_folders.h"
#include "program/setting_keys.h"
#include "shell/help.h"
#include "text/text.h"

namespace morvane::shell {
namespace {

enum class Tells : std::uint8_t {
  kAll,      ///< the whole line
  kNumbers,  ///< numbers, a time, and whether it went well
  kEnding,   ///< the ending of the file's name
  kItself,   ///< what happened, and no more
};

struct LineKind {
  std::string_view Head;
  Tells What;
};
constexpr std::array kLineKinds{
    LineKind{"---", Tells::kItself},
    LineKind{"Start ", Tells::kNumbers},
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
    LineKind{" Unexpected ", Tells::kAll},
    LineKind{" Unsaved Board Set of ", Tells::kNumbers},
    LineKind{"  S/N:", Tells::kAll},
    LineKind{" Machine: ", Tells::kAll},
    LineKind{"  Load: ", Tells::kEnding},
    LineKind{"  Import: ", Tells::kEnding},
    LineKind{"  Save: ", Tells::kEnding},
    LineKind{"  Print parameters: ", Tells::kItself},
    LineKind{"  Sort: ", Tells::kNumbers},
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
                                                      "Reading Error",
                                                      "Save Error",
                                                      "Settings Error",
                                                      "Sort Error",
                                                      "Trace",
                                                      "USB Connection",
                                                      "Unsaved Board Set"};

constexpr std::array kSettings{
    kNewFirstBoard,      kNewLastBoard,   kNewShapes,    kNewInner,       kNewHistory,
    kGenerator,          kLoadAllocation, kSaveEvent,    kSaveIncomplete, kSaveNumbers,
    kSaveAnalyze,        kDealShow,       kDealSub,      kDealCopy,       kDealNumberCopies,
    kAnalyzer,           kErrorSound,     kInitFormat,   kInitReadMode,   kInitStartFromBox,
    kNational,           kCardType,       kThreshold,    kCardIndex,      kCheckBoard,
    kPrintPerPage,       kPrintColor,     kPrintAnalyze, kPrintHcp,       kPrintMode,
    kPrintScoreCardMode, kPrintStat,      kPrintTen,     kSolverVersion};

/// A time, numbers, and behind them whether it went well: what is read of a pack stands behind
/// that.
std::string_view NumbersOf(std::string_view text) {
  std::size_t end = std::min(text.find_first_not_of("0123456789,.:- "), text.size());
  for (const std::string_view word : {"AM", "PM", "OK"}) {
    if (text.substr(end).starts_with(word)) end += word.size();
  }
  return text.substr(0, end);
}

/// "*.pbn"; a name without an ending gives nothing away.
std::string EndingOf(std::string_view path) {
  const std::string name = FileTitle(path);
  const std::size_t dot = name.rfind('.');
  return dot == std::string::npos ? "*" : "*" + name.substr(dot);
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
  const bool open = std::find(kOpenBoxes.begin(), kOpenBoxes.end(), caption) != kOpenBoxes.end();
  return open ? std::string(line) : "";
}

std::string Told(std::string_view line, const LineKind& kind) {
  const std::string_view rest = line.substr(kind.Head.size());
  const std::string head(kind.Head);
  if (kind.What == Tells::kAll) return std::string(line);
  if (kind.What == Tells::kNumbers) return head + std::string(NumbersOf(rest));
  return kind.What == Tells::kEnding ? head + EndingOf(rest) : head;
}

/// The last lines that may be handed on, out of a text that comes block by block.
class LastLines {
 public:
  void Take(std::string_view block) {
    for (const char c : block) {
      if (c != '\n') {
        if (c != '\r') line_ += c;
        continue;
      }
      Keep(LogLineToHandOn(line_));
      line_.clear();
    }
  }
  [[nodiscard]] const std::deque<std::string>& Kept() const { return kept_; }

 private:
  void Keep(std::string line) {
    if (line.empty()) return;
    kept_.push_back(std::move(line));
    if (kept_.size() > Diagnosis::kLogLines) kept_.pop_front();
  }

  std::string line_;
  std::deque<std::string> kept_;
};

/// Of the machine that answered last.
std::string WhatIsKnownOf(const machine::Machine& machine) {
  const wire::VersionReply& version = machine.Version;
  if (version.FirmwareMajor == 0 && version.FirmwareMinor == 0) {
    return "Firmware: the machine has not answered in this run";
  }
  return "Firmware: " + machine.FirmwareVersion() + ", hardware " + Hex8(machine.HardwareId) +
         ", S/N " + std::to_string(machine.SerialNumber);
}

std::string LastTrouble(const machine::MachineLink& link) {
  std::string text = "Link: " + std::to_string(link.CommErrorCount) + " bad replies in a row";
  if (link.ReadFailed) text += ", the last read was short";
  const std::string advice = link.Usb.Advice();
  if (!advice.empty()) text += "; " + Fill(advice, "\n", " ");
  return text;
}

}  // namespace

Diagnosis::Diagnosis(const Program& program) : program_(program), home_(HomeFolder()) {
  AddLines(std::array{"Diagnosis of " + DateTimeText(program.Time.Now())});
}

void Diagnosis::Add(const std::string& line) { text_ += WithoutHome(line) + "\n"; }

void Diagnosis::AddLines(std::span<const std::string> lines) {
  for (const std::string& line : lines) Add(line);
}

std::string Diagnosis::WithoutHome(std::string line) const {
  if (home_.size() < 2) return line;  // the root's
  for (std::size_t at = line.find(home_); at != std::string::npos; at = line.find(home_, at + 1)) {
    line.replace(at, home_.size(), "~");
  }
  return line;
}

void Diagnosis::AddVersions(const std::string& version, std::span<const Library> libraries) {
  Add("Morvane: " + version);
  for (const Library& library : libraries) Add(library.Name + ": " + library.Version);
}

void Diagnosis::AddMachine(const machine::Machine& machine, const std::string& name) {
  Add("Machine: " + name + (machine.Link.IsOpen() ? ", open" : ", not open"));
  Add(WhatIsKnownOf(machine));
  Add(LastTrouble(machine.Link));
}

void Diagnosis::AddSettings() {
  Add("Data folder: " + program_.Paths.Data);
  Add("Settings file: " + program_.Paths.Settings);
  for (const SettingKey& key : kSettings) {
    Add(std::string(key.Name) + " = " + program_.Store.Get(key));
  }
}

void Diagnosis::AddLog() {
  Add("Log: " + (program_.Log.On() ? "the last lines that tell of no deal" : std::string("off")));
  LastLines lines;
  const auto failure =
      ReadBlocks(program_.Log.Path(), [&lines](std::string_view block) { lines.Take(block); });
  if (failure && program_.Log.On()) Add("Log: " + failure->Description);
  for (const std::string& line : lines.Kept()) Add(line);
}

std::string LogLineToHandOn(std::string_view line) {
  const auto* kind = std::find_if(kLineKinds.begin(), kLineKinds.end(), [&](const LineKind& each) {
    return line.starts_with(each.Head);
  });
  if (kind != kLineKinds.end()) return Told(line, *kind);
  if (IsRunOfBoard(line)) return std::string(NumbersOf(line));
  return BoxToHandOn(line);
}

}  // namespace morvane::shell
