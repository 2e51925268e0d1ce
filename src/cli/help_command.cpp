#include "cli/help_command.h"

#include <array>

#include "cli/option_reader.h"
#include "cli/registry.h"
#include "cli/usage.h"

namespace morvane::cli {
namespace {

Task HelpTask(OptionReader& given) {
  const auto name = given.Word(0);
  if (!name) return {nullptr, UsagePage()};
  const Command* const command = FindCommand(*name);
  if (command != nullptr) return {nullptr, CommandHelp(*command)};
  given.Refuse(UnknownCommand(*name));
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
