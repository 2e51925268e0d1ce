#include "cli/pages/completion_tables.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace morvane::pages {
namespace {

/// By `Taken::Kind`.
constexpr std::array<std::string_view, 6> kKindWords{"any",    "word",    "file",
                                                     "folder", "machine", "command"};

std::vector<std::string> LinesOf(const Taken& taken) {
  std::vector<std::string> lines{std::string(kKindWords[static_cast<std::size_t>(taken.Is)])};
  lines.insert(lines.end(), taken.Words.begin(), taken.Words.end());
  return lines;
}

/// A candidate with the first sentence of what it means.
std::string Line(const std::string& candidate, const std::string& means) {
  return candidate + "\t" + means.substr(0, std::min(means.find(". "), means.size()));
}

std::vector<std::string> LinesOf(const std::vector<TakenOption>& options) {
  std::vector<std::string> lines;
  lines.reserve(options.size());
  for (const TakenOption& option : options) lines.push_back(Line("--" + option.Name, option.Means));
  return lines;
}

Entry& EntryOf(std::vector<Entry>& entries, const std::string& key) {
  const auto found = std::find_if(entries.begin(), entries.end(),
                                  [&key](const Entry& entry) { return entry.Key == key; });
  return found == entries.end() ? entries.emplace_back(Entry{key, {}}) : *found;
}

/// A second word has an entry of its first one, which is among the first words once.
Lookup CommandsOf(const ProgramLine& program) {
  Lookup lookup{"commands", {}};
  for (const CommandLine& command : program.Commands) {
    const std::size_t blank = command.Name.find(' ');
    const std::string first = command.Name.substr(0, blank);
    if (blank == std::string::npos) {
      EntryOf(lookup.Entries, "").Lines.push_back(Line(first, command.Means));
      continue;
    }
    Entry& group = EntryOf(lookup.Entries, first);
    group.Lines.push_back(Line(command.Name.substr(blank + 1), command.Means));
    if (group.Lines.size() > 1) continue;
    EntryOf(lookup.Entries, "").Lines.push_back(Line(first, "has commands of its own"));
  }
  return lookup;
}

Lookup OptionsOf(const ProgramLine& program) {
  Lookup lookup{"options", {{"", LinesOf(program.Options)}}};
  for (const CommandLine& command : program.Commands) {
    lookup.Entries.push_back({command.Name, LinesOf(command.Options)});
  }
  return lookup;
}

void AddTaken(Lookup& lookup, const std::string& command, const std::vector<TakenOption>& options) {
  for (const TakenOption& option : options) {
    if (option.Value.empty()) continue;
    EntryOf(lookup.Entries, command + " --" + option.Name).Lines = LinesOf(option.Takes);
  }
}

/// Before its command is known an option's value is only known to be one.
void AddUnknown(Lookup& lookup, const std::vector<TakenOption>& options) {
  for (const TakenOption& option : options) {
    if (!option.Value.empty()) EntryOf(lookup.Entries, " --" + option.Name).Lines = {"any"};
  }
}

Lookup TakesOf(const ProgramLine& program) {
  Lookup lookup{"takes", {}};
  for (const CommandLine& command : program.Commands) AddUnknown(lookup, command.Options);
  AddTaken(lookup, "", program.Options);
  for (const CommandLine& command : program.Commands) {
    AddTaken(lookup, command.Name, command.Options);
  }
  return lookup;
}

/// Of several operands each may be the last one.
void AddOperands(Lookup& lookup, const std::string& command,
                 const std::vector<TakenOperand>& operands) {
  for (std::size_t at = 0; at < operands.size(); ++at) {
    if (operands[at].Several) {
      lookup.Entries.push_back({command + " +", LinesOf(operands[at].Takes)});
      return;
    }
    lookup.Entries.push_back({command + " " + std::to_string(at + 1), LinesOf(operands[at].Takes)});
  }
}

Lookup OperandsOf(const ProgramLine& program) {
  Lookup lookup{"operand", {}};
  AddOperands(lookup, "", program.Operands);
  for (const CommandLine& command : program.Commands) {
    AddOperands(lookup, command.Name, command.Operands);
  }
  return lookup;
}

Lookup MachinesOf(const ProgramLine& program) {
  Entry forms{"forms", {}};
  for (const MachineStart& machine : program.Machines) {
    forms.Lines.push_back(Line(machine.Start, machine.Means));
  }
  Entry keys{"keys", {}};
  for (const MachineStart& key : SimulatedKeys()) {
    keys.Lines.push_back(Line(key.Start + "=", key.Means));
  }
  return {"machine", {forms, keys}};
}

void ReplaceAll(std::string& text, std::string_view what, const std::string& with) {
  for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at)) {
    text.replace(at, what.size(), with);
    at += with.size();
  }
}

}  // namespace

std::vector<Lookup> CompletionTables(const ProgramLine& program) {
  return {CommandsOf(program), OptionsOf(program), TakesOf(program), OperandsOf(program),
          MachinesOf(program)};
}

std::string ForProgram(std::string text, const ProgramLine& program) {
  std::string name = "_" + program.Name;
  std::replace(name.begin(), name.end(), '-', '_');
  ReplaceAll(text, "_PROGRAM", name);
  ReplaceAll(text, "PROGRAM", program.Name);
  return text;
}

}  // namespace morvane::pages
