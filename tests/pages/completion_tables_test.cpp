#include "cli/pages/completion_tables.h"

#include <gmock/gmock.h>

#include <map>

#include "cli/pages/completions.h"
#include "cli/pages/shell_table.h"
#include "cli/programs.h"
#include "cli/registry.h"
#include "cli/request.h"

namespace morvane::pages {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::StartsWith;

using Lines = std::vector<std::string>;

/// The lines of a key of one of the tables; none without one.
Lines In(const ProgramLine& program, const std::string& table, const std::string& key) {
  for (const Lookup& lookup : CompletionTables(program)) {
    if (lookup.Name != table) continue;
    for (const Entry& entry : lookup.Entries) {
      if (entry.Key == key) return entry.Lines;
    }
  }
  return {};
}

TEST(TakenFor, TheWordsOfTheTables) {
  using Kind = Taken::Kind;
  EXPECT_EQ(TakenFor("a4|letter"), (Taken{Kind::kWord, {"a4", "letter"}}));
  EXPECT_EQ(TakenFor("0..3"), (Taken{Kind::kWord, {"0", "1", "2", "3"}}));
  EXPECT_EQ(TakenFor("OUT.pdf"), (Taken{Kind::kFile, {"pdf"}}));
  EXPECT_EQ(TakenFor("DIR"), (Taken{Kind::kFolder}));
  EXPECT_EQ(TakenFor("M"), (Taken{Kind::kMachine}));
  EXPECT_EQ(TakenFor("FORMAT"),
            (Taken{Kind::kWord, {"pbn", "bri", "dge", "dup", "all", "bre", "csv"}}));
  EXPECT_EQ(TakenFor("NEW"), std::nullopt);
}

TEST(TakenFor, KnowsEveryWordThatStandsForAValueOrAnOperand) {
  const auto known = [](std::span<const cli::Option> options) {
    for (const cli::Option& option : options) {
      EXPECT_TRUE(option.Value.empty() || TakenFor(option.Value)) << option.Value;
    }
  };
  for (const cli::Command* command : cli::Commands()) {
    known(command->Options);
    for (const cli::Operand& operand : command->Operands) {
      EXPECT_TRUE(TakenFor(operand.Word)) << operand.Word;
    }
  }
  known(cli::CommonOptions());
  known(cli::DesktopWords().Options);
  known(cli::ServingWords().Options);
}

TEST(CompletionTables, OptionsAndOperandsByCommand) {
  const ProgramLine console = ConsoleLine();
  EXPECT_THAT(In(console, "options", "poker show"), ElementsAre("--deal\tthis deal only"));
  EXPECT_THAT(In(console, "options", "maintain info"), ElementsAre());
  EXPECT_THAT(In(console, "commands", "poker"), Contains(StartsWith("read\tReads stacked packs")));
  EXPECT_THAT(In(console, "takes", "poker print --paper"), ElementsAre("word", "a4", "letter"));
  EXPECT_THAT(In(console, "takes", " --paper"), ElementsAre("any"));
  EXPECT_THAT(In(console, "takes", " --data"), ElementsAre("folder"));
  EXPECT_THAT(In(console, "operand", "poker show 1"), ElementsAre("file", "pkr"));
  EXPECT_THAT(In(console, "operand", "poker show 2"), ElementsAre());
  EXPECT_THAT(In(console, "operand", "help +"), ElementsAre("command"));
  EXPECT_THAT(In(ServingLine(), "takes", " --pace"), ElementsAre("word", "wire", "fast"));
}

TEST(CompletionTables, AFirstWordOfTwoStandsThereOnce) {
  int groups = 0;
  for (const std::string& line : In(ConsoleLine(), "commands", "")) {
    groups += line.starts_with("maintain\t") ? 1 : 0;
  }
  EXPECT_EQ(groups, 1);
}

TEST(CompletionTables, EveryOptionIsInEachScript) {
  for (const ProgramLine& program : {ConsoleLine(), DesktopLine(), ServingLine()}) {
    std::vector<TakenOption> options = program.Options;
    for (const CommandLine& command : program.Commands) {
      options.insert(options.end(), command.Options.begin(), command.Options.end());
    }
    for (const auto& script :
         {BashCompletion(program), ZshCompletion(program), FishCompletion(program)}) {
      for (const TakenOption& option : options) {
        EXPECT_THAT(script, HasSubstr("'--" + option.Name + "\t")) << program.Name;
      }
    }
  }
}

/// What is read before the command is known is read right: a switch never takes the next word.
TEST(CompletionTables, AnOptionTakesAValueWithEachOfItsCommandsOrWithNone) {
  std::map<std::string, bool> takes;
  for (const CommandLine& command : ConsoleLine().Commands) {
    for (const TakenOption& option : command.Options) {
      const auto [known, isNew] = takes.try_emplace(option.Name, !option.Value.empty());
      EXPECT_EQ(known->second, !option.Value.empty()) << option.Name;
    }
  }
}

/// A command line of the command with its files and this option.
cli::Request With(const cli::Command& command, const std::string& name, const std::string& value) {
  cli::CommandWords given;
  const std::string called(command.Name);
  const std::size_t blank = called.find(' ');
  given.Words.push_back(called.substr(0, blank));
  if (blank != std::string::npos) given.Words.push_back(called.substr(blank + 1));
  for (std::size_t at = 0; at < command.Operands.size(); ++at) given.Words.emplace_back("/a");
  given.Options.push_back({name, value});
  return cli::TakeRequest(given);
}

TEST(CompletionTables, TheWordsOfferedAreThoseThatACommandTakes) {
  for (const cli::Command* command : cli::Commands()) {
    for (const cli::Option& option : command->Options) {
      const auto taken = TakenFor(option.Value);
      if (!taken || taken->Is != Taken::Kind::kWord) continue;
      const std::string name(option.Name);
      for (const std::string& word : taken->Words) {
        EXPECT_EQ(With(*command, name, word).Error, "") << command->Name;
      }
      EXPECT_THAT(With(*command, name, "nosuch").Error,
                  HasSubstr("--" + name + " nosuch: wanted " + taken->Words.front()));
    }
  }
}

TEST(ShellTable, QuotesAreEscapedAsEachShellHasThem) {
  const std::vector<Lookup> tables{{"options", {{"it's", {"a\\b"}}, {"none", {}}}}};
  EXPECT_EQ(CaseFunctions(tables),
            "\n_PROGRAM__options() {\n  case $1 in\n    'it'\\''s')\n      printf '%s\\n' \\\n"
            "        'a\\b'\n      ;;\n    'none')\n      true\n      ;;\n    *) return 1 ;;\n"
            "  esac\n}\n");
  EXPECT_EQ(SwitchFunctions(tables),
            "\nfunction _PROGRAM__options\n  switch $argv[1]\n    case 'it\\'s'\n"
            "      printf '%s\\n' \\\n        'a\\\\b'\n    case 'none'\n      true\n"
            "    case '*'\n      return 1\n  end\nend\n");
}

}  // namespace
}  // namespace morvane::pages
