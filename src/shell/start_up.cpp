#include <algorithm>
#include <array>

#include "files/load_set.h"
#include "shell/shell.h"
#include "shell/version.h"
#include "text/text.h"

// Start-up, in its order.

namespace morvane::shell {
namespace {

constexpr std::array<std::string_view, 3> kServiceWords{"", " Service ", " Advance Service"};

std::string DateTimeText(const LocalTime& now) {
  const auto two = [](int n) { return (n < 10 ? "0" : "") + std::to_string(n); };
  return std::to_string(now.Year) + "-" + two(now.Month) + "-" + two(now.Day) + " " +
         ClockText(now.Hour, now.Minute, now.Second);
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
  std::string path(commandLine.substr(open + 1, close - open - 1));
  const std::string ending =
      UpperCase(path.substr(path.size() - std::min<std::size_t>(3, path.size())));
  if (ending == "ADC") return {"", std::move(path)};
  return {std::move(path), ""};
}

std::string VersionTextOf(int serviceLevel) {
  return std::string(kVersion) +
         std::string(kServiceWords[static_cast<std::size_t>(serviceLevel)]) + " with Sort 1.0 " +
         " with Poker 1.5 ";
}

StartOutcome Shell::StartUp(const std::string& commandLine) {
  const Flow flow(*this);
  const StartFiles files = ParseCommandLine(commandLine);
  const StartOutcome outcome = BecomeTheRunningOne(files);
  if (outcome != StartOutcome::kGoesOn) return outcome;
  program_.ShowStatistics = program_.Store.IsOn(kDealShow);
  started_ = true;
  startFile_ = files.StartFile;
  program_.VersionText = VersionTextOf(program_.ServiceLevel);
  generator_.Pool.InitPool(program_.Operator.Mouse());
  program_.Status("Loading...");
  windows_.ShowMainMenu();
  program_.Loop.Pump();
  history_.LoadHistory(program_);
  OpenLog();
  if (history_.HistoryEnabled()) {
    program_.Log.WriteLine("History records: " + std::to_string(history_.Ring().HistoryUsed()));
  }
  program_.Status("Ready");
  program_.Log.WriteLine("---");
  program_.Log.WriteLine("Start " + DateTimeText(program_.Time.Now()));
  program_.Log.WriteLine(
      "   Start up parameters: " + std::to_string(generator_.Pool.StartParamDays) + "," +
      std::to_string(generator_.Pool.StartParamMouse) + "  " + program_.VersionText + "  " +
      commandLine);
  if (!files.FirmwareFile.empty()) {
    RefuseFirmware(files.FirmwareFile);
  } else if (!startFile_.empty()) {
    files::LoadBoardSet(program_, history_, windows_, startFile_);
  }
  return outcome;
}

StartOutcome Shell::BecomeTheRunningOne(const StartFiles& files) {
  if (!instance_.Claim()) {
    const std::string command = LinkCommandOf(files);
    if (!command.empty() && instance_.HandOver(command)) return StartOutcome::kHandedOver;
    // The other may have ended while this one called it.
    if (command.empty() || !instance_.Claim()) {
      program_.ShowMessage(program_.Texts.Msg086, kOkCritical, "Application Start Error");
      return StartOutcome::kRefused;
    }
  }
  // A request that comes during start-up is taken up after it.
  instance_.Listen([this](std::string_view command) { LinkExecute(command); });
  return StartOutcome::kGoesOn;
}

void Shell::OpenLog() {
  RuntimeError error;
  if (program_.Log.Start(program_.Paths.Data, error)) return;
  const std::string text = Fill(program_.Texts.Msg083, "***", program_.Paths.Application);
  program_.ShowMessage(
      Fill(text, "###", "Error: " + std::to_string(error.Number) + ", " + error.Description),
      kOkCritical, "Log Error");
}

void Shell::RefuseFirmware(const std::string& path) {
  program_.ShowMessage(
      "      Firmware download is not available in this version.      \r\n"
      "      Firmware file: " +
          path + "      ",
      kOkExclamation, "Download New Firmware");
}

}  // namespace morvane::shell
