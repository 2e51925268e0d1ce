#include "cli/pages/facts.h"

#include "bridges/link_request.h"
#include "cli/pages/program_line.h"
#include "cli/programs.h"
#include "cli/values.h"
#include "simulator/line/operator_commands.h"
#include "text/box_text.h"

namespace morvane::pages {
namespace {

/// Words that are chosen from are typed; another word stands for what is typed.
Text ValueText(std::string_view value) {
  if (value.find('|') == std::string_view::npos) return {StandsFor(value)};
  Text text;
  for (const std::string& word : cli::ChoicesOf(value)) {
    if (!text.empty()) text.push_back(Plain("|"));
    text.push_back(Typed(word));
  }
  return text;
}

Text OptionText(const cli::Option& option) {
  Text text{Typed("--" + std::string(option.Name))};
  if (option.Value.empty()) return text;
  text.push_back(Plain(" "));
  for (const Span& span : ValueText(option.Value)) text.push_back(span);
  return text;
}

Text OperandText(const cli::Operand& operand) {
  Text text{StandsFor(operand.Word)};
  if (operand.Several) text.push_back(Plain("..."));
  if (operand.Is == cli::Operand::Kind::kFile) return text;
  text.insert(text.begin(), Plain("["));
  text.push_back(Plain("]"));
  return text;
}

/// What may be left out stands in brackets.
std::vector<Text> Bracketed(std::span<const cli::Option> options) {
  std::vector<Text> pieces;
  bool open = false;
  for (const cli::Option& option : options) {
    if (!open) pieces.push_back({Plain("[")});
    Text& piece = pieces.back();
    for (const Span& span : OptionText(option)) piece.push_back(span);
    open = option.WithNext;
    piece.push_back(Plain(open ? " " : "]"));
  }
  return pieces;
}

/// The lines of a text as one.
std::string OneLine(std::string_view text) {
  std::string line;
  for (const char c : text) {
    const bool blank = c == '\n' || c == ' ';
    if (!blank || !line.ends_with(' ')) line += blank ? ' ' : c;
  }
  return line;
}

}  // namespace

Paragraph Says(std::string_view words) { return {{Plain(words)}}; }

Definitions OptionTable(std::span<const cli::Option> options, std::string_view machines) {
  Definitions table{"Option", {}};
  for (const cli::Option& option : options) {
    const std::string means = Fill(std::string(option.Means), cli::kFormsInHelp, machines);
    table.Rows.push_back({OptionText(option), {Plain(means)}});
  }
  return table;
}

Definitions OperandTable(std::span<const cli::Operand> operands) {
  Definitions table{"Argument", {}};
  for (const cli::Operand& operand : operands) {
    table.Rows.push_back({{StandsFor(operand.Word)}, {Plain(operand.Means)}});
  }
  return table;
}

Definitions MachineTable() {
  Definitions table{"Machine", {}};
  for (const bridges::MachineForm& form : bridges::kMachineForms) {
    table.Rows.push_back({{Typed(form.Start), StandsFor(form.Rest)}, {Plain(form.Means)}});
  }
  return table;
}

Definitions KeyTable() {
  Definitions table{"Key", {}};
  for (const MachineStart& key : SimulatedKeys()) {
    table.Rows.push_back({{Typed(key.Start + "=")}, {Plain(key.Means)}});
  }
  return table;
}

Definitions OperatorTable() {
  Definitions table{"Command", {}};
  for (const simulator::OperatorWords& command : simulator::OperatorCommands()) {
    Text term{Typed(command.Word)};
    if (!command.Behind.empty()) {
      term.push_back(Plain(" "));
      term.push_back(StandsFor(command.Behind));
    }
    table.Rows.push_back({term, {Plain(OneLine(command.Means))}});
  }
  return table;
}

Definitions FileTable() {
  return {"File",
          {{{Typed("~/.local/share/Morvane_Data/")},
            {Plain("the data folder: the log of each month, "), Typed("Log_YEAR_MONTH.txt"),
             Plain(", the history of the boards played, "), Typed("history1.dat"),
             Plain(", service files, and copies of sets that were not saved")}},
           {{Typed("~/.config/morvane.exe.ini")}, {Plain("the settings store")}}}};
}

Definitions VariableTable() {
  return {
      "Variable",
      {{{Typed("XDG_DATA_HOME")}, {Plain("the folder of the data folder, where it is absolute")}},
       {{Typed("XDG_CONFIG_HOME")},
        {Plain("the folder of the settings store, where it is absolute")}},
       {{Typed("HOME")}, {Plain("the user's folder, in which both lie otherwise")}}}};
}

Synopsis Called(std::string_view name, std::span<const cli::Operand> operands,
                std::span<const cli::Option> options) {
  Synopsis synopsis{std::string(name), {}};
  for (const cli::Operand& operand : operands) synopsis.Pieces.push_back(OperandText(operand));
  for (const Text& piece : Bracketed(options)) synopsis.Pieces.push_back(piece);
  return synopsis;
}

Section SeeAlso(const std::vector<std::string>& pages) {
  Text text;
  for (const std::string& page : pages) {
    if (!text.empty()) text.push_back(Plain(", "));
    const std::size_t section = page.find('(');
    text.push_back(Typed(page.substr(0, section)));
    text.push_back(Plain(page.substr(section)));
  }
  return {"SEE ALSO", {Paragraph{text}}};
}

}  // namespace morvane::pages
