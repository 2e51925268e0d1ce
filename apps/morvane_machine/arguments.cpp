#include "arguments.h"

#include <array>
#include <optional>
#include <set>
#include <string_view>
#include <utility>

#include "cli/programs.h"
#include "platform/files.h"
#include "platform/paths.h"
#include "shell/version.h"
#include "simulator/line/operator_commands.h"
#include "simulator/options.h"

namespace morvane {
namespace {

std::string Usage() {
  return cli::UsageOf(cli::ServingWords()) + "\nMachines:  " + simulator::OptionsUsage(11) +
         "\n\nMeanwhile these may be typed, with several machines behind the number of one, as\n"
         "2 pedal:\n" +
         simulator::OperatorCommandsHelp();
}

/// What is being read.
struct Reading {
  MachineArguments Result;
  bool MachineNamed = false;
  std::set<std::string_view> Given{};  ///< options of the machine that is being told of
  [[nodiscard]] ServedKind& Kind() { return Result.Machines.back(); }
};

bool TakeMachine(const std::string& value, Reading& reading) {
  if (std::exchange(reading.MachineNamed, true)) {
    reading.Result.Machines.emplace_back();
    reading.Given.clear();
  }
  reading.Kind().Machine = value;
  return !value.empty();
}

bool TakePace(const std::string& value, Reading& reading) {
  if (value != "wire" && value != "fast") return false;
  reading.Kind().Pace = value == "wire" ? simulator::Pace::kWire : simulator::Pace::kFast;
  return true;
}

bool TakeLink(const std::string& value, Reading& reading) {
  reading.Kind().Link = value;
  return !value.empty();
}

bool TakeTrace(const std::string& value, Reading& reading) {
  reading.Kind().Trace = value;
  return !value.empty();
}

struct TakenOption {
  std::string_view Name;
  bool (*Take)(const std::string& value, Reading& reading);
};
constexpr std::array<TakenOption, 4> kTaken{{{cli::kServedOption.Name, TakeMachine},
                                             {cli::kPaceOption.Name, TakePace},
                                             {cli::kLinkOption.Name, TakeLink},
                                             {cli::kLineTraceOption.Name, TakeTrace}}};
std::string WithDashes(std::string_view name) { return "--" + std::string(name); }

/// Who thinks that options stand in front of their machine would have it otherwise than meant.
std::optional<std::string> TwiceGiven(std::string_view option, Reading& reading) {
  if (reading.Given.insert(option).second || option == cli::kServedOption.Name) return std::nullopt;
  return WithDashes(option) + ": twice for one machine; it stands behind its --machine";
}

/// Takes the option at `at`, which moves behind it, with the value behind "=" or in the next word.
/// What is wrong with it.
std::optional<std::string> TakeOption(const std::vector<std::string>& words, std::size_t& at,
                                      Reading& reading) {
  const std::string& word = words[at++];
  if (word == WithDashes(cli::kWithoutHandsOption.Name)) {
    reading.Kind().TraceWithoutHands = true;
    return std::nullopt;
  }
  const std::size_t equals = word.find('=');
  const std::string name = word.substr(0, equals);
  for (const TakenOption& option : kTaken) {
    if (WithDashes(option.Name) != name) continue;
    if (equals == std::string::npos && at == words.size()) return name + ": nothing named";
    const std::string value = equals == std::string::npos ? words[at++] : word.substr(equals + 1);
    if (option.Take(value, reading)) return TwiceGiven(option.Name, reading);
    return name + (value.empty() ? ": nothing named" : ": not \"" + value + "\"");
  }
  return "unknown word \"" + word + "\"";
}

/// What is wrong with the words as a whole; empty where nothing is.
std::string WrongTogether(const std::vector<ServedKind>& kinds) {
  std::vector<std::string> traces;
  for (const ServedKind& kind : kinds) {
    traces.push_back(kind.Trace);
    if (kind.TraceWithoutHands && kind.Trace.empty()) {
      return WithDashes(cli::kWithoutHandsOption.Name) + " needs --trace FILE";
    }
  }
  const std::string trace = NamedTwice(traces);
  return trace.empty() ? "" : "--trace " + trace + ": for two machines";
}

}  // namespace

MachineArguments ParseMachineArguments(const std::vector<std::string>& words) {
  Reading reading;
  MachineArguments& result = reading.Result;
  for (std::size_t at = 0; at < words.size() && result.Error.empty();) {
    const std::string& word = words[at];
    if (word == "--help" || word == "-h") result.Help = Usage();
    if (word == "--version") {
      result.Help =
          std::string(cli::ServingWords().Name) + " " + std::string(shell::kVersion) + "\n";
    }
    if (!result.Help.empty()) return result;
    result.Error = TakeOption(words, at, reading).value_or("");
  }
  if (result.Error.empty()) result.Error = WrongTogether(result.Machines);
  return result;
}

std::string NamedTwice(const std::vector<std::string>& files) {
  std::set<std::string> seen;
  for (const std::string& file : files) {
    if (!file.empty() && !seen.insert(TruePath(AbsolutePath(file))).second) return file;
  }
  return "";
}

}  // namespace morvane
