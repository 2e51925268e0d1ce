#include "arguments.h"

#include <array>
#include <optional>
#include <string_view>

#include "shell/version.h"
#include "simulator/line/operator_commands.h"
#include "simulator/options.h"

namespace morvane {
namespace {

std::string Usage() {
  return "Usage: morvane-machine [--machine M] [--pace wire|fast] [--link PATH]\n"
         "\n"
         "Serves a simulated machine on a pseudo-terminal, until a signal ends it. Its\n"
         "first line is what --machine of the other programs takes: serial:PATH.\n"
         "\n"
         "  --machine M      " +
         simulator::OptionsUsage(19) +
         "\n"
         "  --pace P         wire (the default): bytes and answers take the time that they\n"
         "                   take over a serial line; fast: none\n"
         "  --link PATH      a link to the device, for a path that is always the same\n"
         "  --version        say which version this is\n"
         "\n"
         "Meanwhile these may be typed:\n" +
         simulator::OperatorCommandsHelp();
}

bool TakePace(const std::string& value, MachineArguments& result) {
  if (value != "wire" && value != "fast") return false;
  result.Pace = value == "wire" ? simulator::Pace::kWire : simulator::Pace::kFast;
  return true;
}

bool TakeMachine(const std::string& value, MachineArguments& result) {
  result.Machine = value;
  return !value.empty();
}

bool TakeLink(const std::string& value, MachineArguments& result) {
  result.Link = value;
  return !value.empty();
}

struct Option {
  std::string_view Name;
  bool (*Take)(const std::string& value, MachineArguments& result);
};
constexpr std::array<Option, 3> kOptions{
    {{"--machine", TakeMachine}, {"--pace", TakePace}, {"--link", TakeLink}}};

/// Takes the option at `at`, which moves behind it, with the value behind "=" or in the next word.
/// What is wrong with it.
std::optional<std::string> TakeOption(const std::vector<std::string>& words, std::size_t& at,
                                      MachineArguments& result) {
  const std::string& word = words[at++];
  const std::size_t equals = word.find('=');
  const std::string name = word.substr(0, equals);
  for (const Option& option : kOptions) {
    if (option.Name != name) continue;
    if (equals == std::string::npos && at == words.size()) return name + ": nothing named";
    const std::string value = equals == std::string::npos ? words[at++] : word.substr(equals + 1);
    if (option.Take(value, result)) return std::nullopt;
    return name + (value.empty() ? ": nothing named" : ": not \"" + value + "\"");
  }
  return "unknown word \"" + word + "\"";
}

}  // namespace

MachineArguments ParseMachineArguments(const std::vector<std::string>& words) {
  MachineArguments result;
  for (std::size_t at = 0; at < words.size() && result.Error.empty();) {
    const std::string& word = words[at];
    if (word == "--help" || word == "-h") result.Help = Usage();
    if (word == "--version") {
      result.Help = "morvane-machine " + std::string(shell::kVersion) + "\n";
    }
    if (!result.Help.empty()) return result;
    result.Error = TakeOption(words, at, result).value_or("");
  }
  return result;
}

}  // namespace morvane
