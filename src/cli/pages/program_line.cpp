#include "cli/pages/program_line.h"

#include <algorithm>
#include <array>
#include <span>

#include "bridges/link_request.h"
#include "cli/programs.h"
#include "cli/registry.h"
#include "cli/values.h"
#include "files/format_table.h"
#include "simulator/options.h"
#include "text/text.h"

namespace morvane::pages {
namespace {

using Kind = Taken::Kind;

struct KnownWord {
  std::string_view Word;
  Kind Is;
};
constexpr std::array<KnownWord, 13> kKnownWords{{{"N", Kind::kAnything},
                                                 {"TEXT", Kind::kAnything},
                                                 {"HEX32", Kind::kAnything},
                                                 {"HEX40", Kind::kAnything},
                                                 {"HEX64", Kind::kAnything},
                                                 {"YYYY-MM-DD", Kind::kAnything},
                                                 {"NAME=VALUE", Kind::kAnything},
                                                 {"FILE", Kind::kFile},
                                                 {"PATH", Kind::kFile},
                                                 {"BIT", Kind::kFile},
                                                 {"DIR", Kind::kFolder},
                                                 {"M", Kind::kMachine},
                                                 {"COMMAND", Kind::kCommand}}};

/// Words whose files or words are listed elsewhere.
std::optional<Taken> ListedFor(std::string_view word) {
  if (word == "IN" || word == "OUT") return Taken{Kind::kFile, files::SavedExtensions()};
  if (word == "FORMAT") return Taken{Kind::kWord, files::SavedExtensions()};
  if (word == "LOG") return Taken{Kind::kFile, {"txt"}};
  return std::nullopt;
}

/// "OUT.pdf" names the extension.
std::optional<Taken> FileFor(std::string_view word) {
  const std::size_t dot = word.rfind('.');
  if (dot == std::string_view::npos) return std::nullopt;
  return Taken{Kind::kFile, {LowerCase(word.substr(dot + 1))}};
}

TakenOption OptionOf(const cli::Option& option) {
  return {std::string(option.Name), std::string(option.Value), std::string(option.Means),
          TakenFor(option.Value).value_or(Taken{})};
}

std::vector<TakenOption> OptionsOf(std::span<const cli::Option> options) {
  std::vector<TakenOption> result;
  for (const cli::Option& option : options) result.push_back(OptionOf(option));
  return result;
}

std::vector<TakenOperand> OperandsOf(std::span<const cli::Operand> operands) {
  std::vector<TakenOperand> result;
  for (const cli::Operand& operand : operands) {
    const bool named = operand.Is == cli::Operand::Kind::kCommandName;
    result.push_back({TakenFor(operand.Word).value_or(Taken{}), operand.Several || named});
  }
  return result;
}

CommandLine LineOf(const cli::Command& command) {
  return {std::string(command.Name), std::string(command.Summary), OperandsOf(command.Operands),
          OptionsOf(command.Options)};
}

std::vector<MachineStart> AllMachines() {
  std::vector<MachineStart> starts;
  for (const bridges::MachineForm& form : bridges::kMachineForms) {
    const bool again = !starts.empty() && starts.back().Start == form.Start;
    if (!again) starts.push_back({std::string(form.Start), std::string(form.Means)});
  }
  return starts;
}

MachineStart WithKeys() { return {"simulated,", "the same with keys"}; }

ProgramLine LineOf(const cli::ProgramWords& words) {
  return {.Name = std::string(words.Name),
          .Options = OptionsOf(words.Options),
          .Operands = OperandsOf(words.Operands),
          .Commands = {},
          .Machines = AllMachines()};
}

}  // namespace

std::optional<Taken> TakenFor(std::string_view word) {
  if (auto choices = cli::ChoicesOf(word); !choices.empty()) return Taken{Kind::kWord, choices};
  if (auto listed = ListedFor(word)) return listed;
  const auto* const known =
      std::find_if(kKnownWords.begin(), kKnownWords.end(),
                   [word](const KnownWord& entry) { return entry.Word == word; });
  if (known != kKnownWords.end()) return Taken{known->Is};
  return FileFor(word);
}

ProgramLine ConsoleLine() {
  ProgramLine line{.Name = "morvane-cli",
                   .Options = OptionsOf(cli::CommonOptions()),
                   .Operands = {},
                   .Commands = {},
                   .Machines = AllMachines()};
  for (const auto& option : OptionsOf(cli::kTellingOptions)) line.Options.push_back(option);
  for (const cli::Command* command : cli::Commands()) line.Commands.push_back(LineOf(*command));
  line.Machines.push_back(WithKeys());
  return line;
}

ProgramLine DesktopLine() {
  ProgramLine line = LineOf(cli::DesktopWords());
  line.Operands.front().Takes.Words = files::SavedExtensions();
  line.Operands.front().Takes.Words.emplace_back("adc");
  line.Machines.push_back(WithKeys());
  return line;
}

ProgramLine ServingLine() {
  ProgramLine line = LineOf(cli::ServingWords());
  std::erase_if(line.Machines,
                [](const MachineStart& machine) { return machine.Start != "simulated"; });
  line.Machines.push_back(WithKeys());
  return line;
}

std::vector<MachineStart> SimulatedKeys() {
  std::vector<MachineStart> keys;
  for (const simulator::KeyWords& key : simulator::Keys()) {
    keys.push_back({std::string(key.Name), std::string(key.Takes)});
  }
  return keys;
}

}  // namespace morvane::pages
