#include "shell/diagnosis.h"

#include <array>
#include <deque>
#include <utility>

#include "platform/files.h"
#include "program/setting_keys.h"
#include "shell/handed_on.h"
#include "shell/help.h"
#include "text/box_text.h"
#include "text/text.h"

namespace morvane::shell {
namespace {

constexpr std::array kSettings{
    kNewFirstBoard,      kNewLastBoard,   kNewShapes,    kNewInner,       kNewHistory,
    kGenerator,          kLoadAllocation, kSaveEvent,    kSaveIncomplete, kSaveNumbers,
    kSaveAnalyze,        kDealShow,       kDealSub,      kDealCopy,       kDealNumberCopies,
    kAnalyzer,           kErrorSound,     kInitFormat,   kInitReadMode,   kInitStartFromBox,
    kNational,           kCardType,       kThreshold,    kCardIndex,      kCheckBoard,
    kPrintPerPage,       kPrintColor,     kPrintAnalyze, kPrintHcp,       kPrintMode,
    kPrintScoreCardMode, kPrintStat,      kPrintTen,     kSolverVersion};

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

/// Empty where there was none.
std::string LastTrouble(const machine::MachineLink& link) {
  std::string text;
  const int bad = link.CommErrorCount;
  if (bad > 0) text += std::to_string(bad) + " bad replies in a row; ";
  if (link.ReadFailed) text += "the last read was short; ";
  return text + WithoutPaths(Fill(link.Usb.Advice(), "\n", " "));
}

}  // namespace

Diagnosis::Diagnosis(const Program& program) : program_(program) {
  AddLines(std::array{"Diagnosis of " + DateTimeText(program.Time.Now())});
}

void Diagnosis::Add(const std::string& line) { text_ += line + "\n"; }

void Diagnosis::AddLines(std::span<const std::string> lines) {
  for (const std::string& line : lines) Add(line);
}

void Diagnosis::AddVersions(const std::string& version, std::span<const Library> libraries) {
  Add("Morvane: " + version);
  for (const Library& library : libraries) Add(library.Name + ": " + library.Version);
}

void Diagnosis::AddMachine(const machine::Machine& machine, const std::string& name) {
  Add("Machine: " + MachineToHandOn(name) +
      (machine.Link.IsOpen() ? ", in use" : ", not in use now"));
  Add(WhatIsKnownOf(machine));
  const std::string trouble = LastTrouble(machine.Link);
  Add("Link: " + (trouble.empty() ? "no trouble" : trouble));
}

void Diagnosis::AddSettings() {
  Add("Data folder: " + PlaceToHandOn(program_.Paths.Data));
  const ProgramPaths& paths = program_.Paths;
  Add(paths.SettingsKey.empty() ? "Settings file: " + PlaceToHandOn(paths.Settings)
                                : "Settings: " + paths.SettingsKey);
  for (const SettingKey& key : kSettings) {
    Add(std::string(key.Name) + " = " + ValueToHandOn(program_.Store.Get(key)));
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

}  // namespace morvane::shell
