#include "cli/help_command.h"

#include <array>
#include <string>
#include <vector>

#include "cli/option_reader.h"
#include "cli/registry.h"
#include "cli/usage.h"

namespace morvane::cli {
namespace {

Task HelpTask(OptionReader& given) {
  std::vector<std::string> words;
  while (const auto word = given.Word(words.size())) words.push_back(*word);
  if (words.empty()) return {nullptr, UsagePage()};
  const Command* const command = CommandOf(words);
  if (command == nullptr) {
    given.Refuse(UnknownCommand(words));
  } else if (words.size() > WordsOfName(*command)) {
    given.Refuse("help: wrong number of commands");
  } else {
    return {nullptr, CommandHelp(*command)};
  }
  return {};
}

constexpr std::array kOperands{
    Operand{"COMMAND", "the command; without it the usage of all", Operand::Kind::kCommandName},
};

}  // namespace

constinit const Command kHelpCommand{.Name = "help",
                                     .Operands = kOperands,
                                     .Summary = "Tells what a command does and what it takes.",
                                     .Prepare = HelpTask};

}  // namespace morvane::cli
