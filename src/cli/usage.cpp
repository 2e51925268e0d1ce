#include "cli/usage.h"

#include <vector>

#include "bridges/link_request.h"
#include "cli/registry.h"
#include "cli/usage_text.h"
#include "files/format_table.h"

namespace morvane::cli {
namespace {

/// `start`, then the command with all that it takes.
std::string UsageLines(const std::string& start, const Command& command) {
  std::string line = start + std::string(command.Name);
  for (const Operand& operand : command.Operands) line += " " + TextOf(operand);
  return Wrapped(line, line.size() + 1, Bracketed(command.Options));
}

std::string SetFiles() {
  std::string text;
  for (const std::string& extension : files::SavedExtensions()) text += " ." + extension;
  return text;
}

}  // namespace

std::string UsagePage() {
  const std::string start = "Usage: morvane-cli";
  std::vector<std::string> pieces = Bracketed(CommonOptions());
  pieces.insert(pieces.end(), {"COMMAND", "..."});
  std::string text = Wrapped(start, start.size() + 1, pieces) + "\n";
  for (const Command* command : Commands()) text += UsageLines("  ", *command);
  text += "\nMachines:  " + bridges::MachineUsage(11) + "\nSet files:" + SetFiles() + "\n";
  for (const Command* command : Commands()) {
    if (!command->Note.empty()) text += "\n" + Paragraph(command->Note);
  }
  return text + "\n" + Paragraph(kExitStatusText) +
         "\n'morvane-cli help COMMAND' says what the options of a command mean, and\n"
         "'morvane-cli --version' which version this is.\n";
}

std::string CommandHelp(const Command& command) {
  std::string text = UsageLines("Usage: morvane-cli ", command) + "\n" + Paragraph(command.Summary);
  if (const auto rows = RowsOf(command.Operands, command.Options); !rows.empty())
    text += "\n" + Table(rows);
  if (!command.Note.empty()) text += "\n" + Paragraph(command.Note);
  return text + "\nEvery command takes these too:\n" + Table(RowsOf({}, CommonOptions()));
}

}  // namespace morvane::cli
