#pragma once

#include <string>
#include <vector>

#include "cli/pages/program_line.h"

namespace morvane::pages {

/// What a completion script finds behind a key; a line has a candidate, or a candidate, a tab and
/// what it means.
struct Entry {
  std::string Key;
  std::vector<std::string> Lines;
};

/// A function of a completion script that finds entries.
struct Lookup {
  std::string Name;
  std::vector<Entry> Entries;
};

/// The facts of a completion, the same for each shell:
/// - `commands`: by "" the first words of commands, by a first word the second ones;
/// - `options`: by the name of a command its own, by "" those of all;
/// - `takes`: by "COMMAND --OPTION", or " --OPTION" for any command, the kind of the value ("any",
///   "word", "file", "folder", "machine" or "command") and its words;
/// - `operand`: by "COMMAND NUMBER", or "COMMAND +" for each, the same of an operand;
/// - `machine`: by "forms" those of --machine, by "keys" those of the simulated one.
[[nodiscard]] std::vector<Lookup> CompletionTables(const ProgramLine& program);

/// `text` with `_PROGRAM` and `PROGRAM` in it replaced: a name for functions, and the program's.
[[nodiscard]] std::string ForProgram(std::string text, const ProgramLine& program);

}  // namespace morvane::pages
