#include "shell/start_up.h"

#include <algorithm>
#include <array>
#include <utility>

#include "program/data_folder.h"
#include "shell/version.h"
#include "text/text.h"

namespace morvane::shell {
namespace {

constexpr std::array<std::string_view, 3> kServiceWords{"", " Service ", " Advance Service"};

StartFiles FilesOf(std::string path) {
  const std::string ending =
      UpperCase(path.substr(path.size() - std::min<std::size_t>(3, path.size())));
  if (ending == "ADC") return {"", std::move(path)};
  return {std::move(path), ""};
}

/// The link command that asks for the file; empty without one.
std::string LinkCommandOf(const StartFiles& files) {
  if (!files.FirmwareFile.empty()) return "2" + files.FirmwareFile;
  return files.StartFile.empty() ? "" : "1" + files.StartFile;
}

}  // namespace

StartFiles ParseCommandLine(std::string_view commandLine) {
  const std::size_t open = commandLine.find('"');
  if (open == std::string_view::npos) return {};
  const std::size_t close = commandLine.find('"', open + 1);
  if (close == std::string_view::npos) return {};
  return FilesOf(std::string(commandLine.substr(open + 1, close - open - 1)));
}

std::string LinkCommandFor(std::string path) { return LinkCommandOf(FilesOf(std::move(path))); }

std::string VersionTextOf(int serviceLevel) {
  return std::string(kVersion) +
         std::string(kServiceWords[static_cast<std::size_t>(serviceLevel)]) + " with Sort 1.0 " +
         " with Poker 1.5 ";
}

StartOutcome BecomeTheRunningOne(Program& program, Instance& instance, const StartFiles& files,
                                 const std::function<void(std::string_view command)>& listener) {
  if (!instance.Claim()) {
    const std::string command = LinkCommandOf(files);
    if (!command.empty() && instance.HandOver(command)) return StartOutcome::kHandedOver;
    // The other may have ended while this one called it.
    if (command.empty() || !instance.Claim()) {
      program.ShowMessage(program.Texts.Msg086, kOkCritical, "Application Start Error");
      return StartOutcome::kRefused;
    }
  }
  // A request that comes during start-up is taken up after it.
  instance.Listen(listener);
  return StartOutcome::kGoesOn;
}

void OpenLog(Program& program) {
  RuntimeError error;
  if (program.Log.Start(program.Paths.Data, error)) return;
  const std::string text = Fill(program.Texts.Msg083, "***", BasePathOf(program.Paths.Data));
  program.ShowMessage(
      Fill(text, "###", "Error: " + std::to_string(error.Number) + ", " + error.Description),
      kOkCritical, "Log Error");
}

void LogStart(Program& program, const generate::RandomPool& pool, const std::string& commandLine) {
  program.Log.Lines(std::array<std::string, 3>{
      "---", "Start " + DateTimeText(program.Time.Now()),
      "   Start up parameters: " + std::to_string(pool.StartParamDays) + "," +
          std::to_string(pool.StartParamMouse) + "  " + program.VersionText + "  " + commandLine});
}

}  // namespace morvane::shell
