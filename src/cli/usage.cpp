#include "cli/usage.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "bridges/link_request.h"
#include "cli/registry.h"

namespace morvane::cli {
namespace {

constexpr std::size_t kWidth = 80;

/// `pieces` behind `start`, a blank before each. A line that would be longer than `kWidth` goes on
/// in the next, behind `indent` blanks.
std::string Wrapped(const std::string& start, std::size_t indent,
                    const std::vector<std::string>& pieces) {
  std::string text;
  std::string line = start;
  for (const std::string& piece : pieces) {
    if (line.size() + 1 + piece.size() <= kWidth) {
      line += " " + piece;
    } else {
      text += line + "\n";
      line = std::string(indent, ' ') + piece;
    }
  }
  return text + line + "\n";
}

std::vector<std::string> WordsOf(std::string_view text) {
  std::vector<std::string> words;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t end = std::min(text.find(' ', at), text.size());
    words.emplace_back(text.substr(at, end - at));
    at = end + 1;
  }
  return words;
}

std::string Paragraph(std::string_view text) {
  std::vector<std::string> words = WordsOf(text);
  const std::string first = words.front();
  words.erase(words.begin());
  return Wrapped(first, 0, words);
}

std::string TextOf(const Option& option) {
  return "--" + std::string(option.Name) +
         (option.Value.empty() ? "" : " " + std::string(option.Value));
}

/// As a usage line has them: what may be left out stands in brackets.
std::vector<std::string> Bracketed(std::span<const Option> options) {
  std::vector<std::string> pieces;
  std::string open = "[";
  for (const Option& option : options) {
    open += TextOf(option) + (option.WithNext ? " " : "]");
    if (!option.WithNext) pieces.push_back(std::exchange(open, "["));
  }
  return pieces;
}

std::string TextOf(const Operand& operand) {
  const std::string word = std::string(operand.Word) + (operand.Several ? "..." : "");
  return operand.Is == Operand::Kind::kFile ? word : "[" + word + "]";
}

/// `start`, then the command with all that it takes.
std::string UsageLines(const std::string& start, const Command& command) {
  std::string line = start + std::string(command.Name);
  for (const Operand& operand : command.Operands) line += " " + TextOf(operand);
  return Wrapped(line, line.size() + 1, Bracketed(command.Options));
}

/// What a row explains, and what it says of it.
struct Row {
  std::string What;
  std::string_view Means;
};

std::string Table(const std::vector<Row>& rows) {
  std::size_t width = 0;
  for (const Row& row : rows) width = std::max(width, row.What.size());
  std::string text;
  for (const Row& row : rows) {
    const std::string start = "  " + row.What + std::string(width - row.What.size() + 1, ' ');
    text += Wrapped(start, start.size() + 1, WordsOf(row.Means));
  }
  return text;
}

std::vector<Row> RowsOf(std::span<const Option> options) {
  std::vector<Row> rows;
  for (const Option& option : options) rows.push_back({TextOf(option), option.Means});
  return rows;
}

std::vector<Row> RowsOf(const Command& command) {
  std::vector<Row> rows;
  for (const Operand& operand : command.Operands) {
    rows.push_back({std::string(operand.Word), operand.Means});
  }
  const std::vector<Row> options = RowsOf(command.Options);
  rows.insert(rows.end(), options.begin(), options.end());
  return rows;
}

}  // namespace

std::string UsagePage() {
  const std::string start = "Usage: morvane-cli";
  std::vector<std::string> pieces = Bracketed(CommonOptions());
  pieces.insert(pieces.end(), {"COMMAND", "..."});
  std::string text = Wrapped(start, start.size() + 1, pieces) + "\n";
  for (const Command* command : Commands()) text += UsageLines("  ", *command);
  text += "\nMachines:  " + bridges::MachineUsage(11) +
          "\n"
          "Set files: .pbn .bri .dge .dup .all .bre .csv\n";
  for (const Command* command : Commands()) {
    if (!command->Note.empty()) text += "\n" + Paragraph(command->Note);
  }
  return text +
         "\nThe exit status is 0 when it is done, 1 when it was refused or failed, 2 for\n"
         "wrong usage, and 3 when it is done, but not wholly: the log or the history was\n"
         "not written, an import passed boards over, cards read were not recognised, a\n"
         "service file is damaged, a trace was not written or not played to its end.\n"
         "\n'morvane-cli help COMMAND' says what the options of a command mean, and\n"
         "'morvane-cli --version' which version this is.\n";
}

std::string CommandHelp(const Command& command) {
  std::string text = UsageLines("Usage: morvane-cli ", command) + "\n" + Paragraph(command.Summary);
  if (const auto rows = RowsOf(command); !rows.empty()) text += "\n" + Table(rows);
  if (!command.Note.empty()) text += "\n" + Paragraph(command.Note);
  return text + "\nEvery command takes these too:\n" + Table(RowsOf(CommonOptions()));
}

}  // namespace morvane::cli
