#include "cli/pages/manual.h"

#include <algorithm>
#include <string>

#include "cli/pages/facts.h"
#include "cli/programs.h"
#include "cli/registry.h"
#include "cli/usage.h"
#include "text/text.h"

namespace morvane::pages {
namespace {

constexpr std::string_view kProgram = "morvane-cli";
constexpr std::string_view kFiles = "morvane-files(5)";
constexpr std::string_view kMachinesBelow = "; see MACHINES below";

/// "morvane-cli-poker-show".
std::string PageName(const cli::Command& command) {
  std::string name = std::string(kProgram) + "-" + std::string(command.Name);
  std::replace(name.begin(), name.end(), ' ', '-');
  return name;
}

/// Whether both names begin with the same of two words.
bool AreRelated(const cli::Command& one, const cli::Command& other) {
  const std::size_t blank = one.Name.find(' ');
  return blank != std::string_view::npos && &one != &other &&
         other.Name.starts_with(one.Name.substr(0, blank + 1));
}

/// The first sentence, as the line of a list has it.
std::string InAList(std::string_view summary) {
  std::string line(summary.substr(0, std::min(summary.find(". "), summary.size())));
  if (line.ends_with('.')) line.pop_back();
  return LowerCase(line.substr(0, 1)) + line.substr(1);
}

std::vector<Block> Description(const cli::Command& command) {
  std::vector<Block> blocks{Says(command.Summary)};
  if (!command.Note.empty()) blocks.emplace_back(Says(command.Note));
  return blocks;
}

Synopsis CalledIn(const cli::Command& command) {
  return Called(std::string(kProgram) + " " + std::string(command.Name), command.Operands,
                command.Options);
}

void AddTables(std::vector<Section>& sections, std::span<const cli::Operand> operands,
               std::span<const cli::Option> options) {
  if (!operands.empty()) sections.push_back({"ARGUMENTS", {OperandTable(operands)}});
  if (!options.empty()) sections.push_back({"OPTIONS", {OptionTable(options, kMachinesBelow)}});
}

Section RelatedPages(const cli::Command& command) {
  std::vector<std::string> pages{std::string(kProgram) + "(1)"};
  for (const cli::Command* other : cli::Commands()) {
    if (AreRelated(command, *other)) pages.push_back(PageName(*other) + "(1)");
  }
  pages.emplace_back(kFiles);
  return SeeAlso(pages);
}

Section Summaries() {
  Definitions table{"Command", {}};
  for (const cli::Command* command : cli::Commands()) {
    table.Rows.push_back({{Typed(command->Name)}, {Plain(command->Summary)}});
  }
  return {"COMMANDS",
          {table, Paragraph{{Plain("Each has a page of its own, as "),
                             Typed("morvane-cli-generate"), Plain("(1).")}}}};
}

Section Machines() {
  return {"MACHINES",
          {Paragraph{{Plain("M is one of these. The keys of the simulated machine stand in "),
                      Typed("morvane-machine"), Plain("(1).")}},
           MachineTable()}};
}

Section Examples() {
  return {"EXAMPLES",
          {Says("A set of 32 boards, its hand records, and its dealing on a simulated machine:"),
           Example{{"morvane-cli generate evening.pbn --first 1 --last 32",
                    "morvane-cli print evening.pbn evening.pdf",
                    "morvane-cli --machine simulated,speed=0 deal evening.pbn --auto"}},
           Says("Sets of other programs as CSV files in a folder, and in no history:"),
           Example{{"morvane-cli convert *.pbn sets --to csv --import --history off"}}}};
}

Paragraph OnlyTelling() {
  Paragraph called{{Typed(kProgram)}};
  for (const cli::Option& option : cli::kTellingOptions) {
    called.Words.push_back(Plain(&option == cli::kTellingOptions.data() ? " " : "|"));
    called.Words.push_back(Typed("--" + std::string(option.Name)));
  }
  return called;
}

Page ConsolePage() {
  Synopsis called = Called(kProgram, {}, cli::CommonOptions());
  called.Pieces.push_back({StandsFor("COMMAND")});
  called.Pieces.push_back({Plain("...")});
  return {std::string(kProgram),
          "board sets and the card-dealing machine from the command line",
          {{"SYNOPSIS", {called, OnlyTelling()}},
           {"DESCRIPTION",
            {Says("Does without a display what morvane does with windows: each command is one "
                  "piece of work. Options may stand before or behind the command.")}},
           Summaries(),
           {"OPTIONS",
            {OptionTable(cli::CommonOptions(), kMachinesBelow), OptionTable(cli::kTellingOptions)}},
           Machines(),
           {"EXIT STATUS", {Says(cli::kExitStatusText)}},
           {"FILES", {FileTable()}},
           {"ENVIRONMENT", {VariableTable()}},
           Examples(),
           SeeAlso({"morvane(1)", "morvane-machine(1)", std::string(kFiles)})}};
}

Definitions DesktopVariables() {
  Definitions table = VariableTable();
  table.Rows.push_back({{Typed("DISPLAY"), Plain(", "), Typed("WAYLAND_DISPLAY")},
                        {Plain("the display on which its windows open")}});
  return table;
}

Page DesktopPage() {
  const cli::ProgramWords& words = cli::DesktopWords();
  Page page{std::string(words.Name),
            std::string(words.Summary),
            {{"SYNOPSIS", {Called(words.Name, words.Operands, words.Options)}},
             {"DESCRIPTION",
              {Says(words.Does),
               Says("It runs once a user and settings store: started again with a file, it has the "
                    "running one load that file. Its guide opens from the menu Help.")}}}};
  AddTables(page.Sections, words.Operands, words.Options);
  const Section rest[]{
      Machines(),
      {"EXIT STATUS",
       {Says("The exit status is 0 when it was closed, or the running one was handed the file; 1 "
             "when there is no display, or it already runs; 2 for wrong usage; 3 when a trace was "
             "not written or not played to its end.")}},
      {"FILES", {FileTable()}},
      {"ENVIRONMENT", {DesktopVariables()}},
      SeeAlso({"morvane-cli(1)", "morvane-machine(1)", std::string(kFiles)})};
  page.Sections.insert(page.Sections.end(), std::begin(rest), std::end(rest));
  return page;
}

Page ServingPage() {
  const cli::ProgramWords& words = cli::ServingWords();
  Page page{std::string(words.Name),
            std::string(words.Summary),
            {{"SYNOPSIS", {Called(words.Name, words.Operands, words.Options)}},
             {"DESCRIPTION", {Says(words.Does)}}}};
  AddTables(page.Sections, words.Operands, words.Options);
  const Section rest[]{
      {"MACHINES",
       {Paragraph{{Plain("M is "), Typed("simulated"),
                   Plain(", with these keys behind it, each behind a comma with its value behind "
                         "an equals sign; --help has the values that are meant where none is "
                         "given.")}},
        KeyTable()}},
      {"COMMANDS",
       {Says("While it serves, these may be typed; with several machines behind the number of one, "
             "as 2 pedal."),
        OperatorTable()}},
      {"EXIT STATUS",
       {Says("The exit status is 0 when it was ended, 1 when a machine could not be put up, 2 for "
             "wrong usage, and 3 when a trace was not written.")}},
      {"EXAMPLES",
       {Says("A machine that keeps its memory, at a path that is always the same, and a program "
             "that deals on it:"),
        Example{{"morvane-machine --machine simulated,store=machine.txt --link /tmp/machine &",
                 "morvane-cli --machine serial:/tmp/machine deal evening.pbn --auto"}}}},
      SeeAlso({"morvane(1)", "morvane-cli(1)", std::string(kFiles)})};
  page.Sections.insert(page.Sections.end(), std::begin(rest), std::end(rest));
  return page;
}

Section ReferenceOf(const cli::Command& command) {
  Section section{std::string(command.Name), Description(command)};
  section.Blocks.emplace_back(CalledIn(command));
  if (!command.Operands.empty()) section.Blocks.emplace_back(OperandTable(command.Operands));
  if (!command.Options.empty()) section.Blocks.emplace_back(OptionTable(command.Options));
  return section;
}

}  // namespace

Page PageOf(const cli::Command& command) {
  Page page{PageName(command),
            InAList(command.Summary),
            {{"SYNOPSIS", {CalledIn(command)}}, {"DESCRIPTION", Description(command)}}};
  AddTables(page.Sections, command.Operands, command.Options);
  const Section rest[]{
      {"COMMON OPTIONS",
       {Says("Every command takes these too:"), OptionTable(cli::CommonOptions(), ""),
        Paragraph{{Plain("The forms of M stand in "), Typed(kProgram), Plain("(1).")}}}},
      {"EXIT STATUS", {Says(cli::kExitStatusText)}},
      RelatedPages(command)};
  page.Sections.insert(page.Sections.end(), std::begin(rest), std::end(rest));
  return page;
}

std::vector<Page> Manual() {
  std::vector<Page> pages{DesktopPage(), ConsolePage(), ServingPage()};
  for (const cli::Command* command : cli::Commands()) pages.push_back(PageOf(*command));
  return pages;
}

std::vector<Section> CommandReference() {
  std::vector<Section> sections;
  for (const cli::Command* command : cli::Commands()) sections.push_back(ReferenceOf(*command));
  sections.push_back(
      {"Options of every command", {OptionTable(cli::CommonOptions(), "; see The machine below")}});
  sections.push_back({"The machine", {MachineTable()}});
  sections.push_back({"Keys of the simulated machine", {KeyTable()}});
  sections.push_back({"Exit status", {Says(cli::kExitStatusText)}});
  return sections;
}

}  // namespace morvane::pages
