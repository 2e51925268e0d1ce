#include "cli/request.h"

#include <algorithm>

#include "cli/registry.h"

namespace morvane::cli {
namespace {

bool IsAmong(std::span<const Option> options, const std::string& name) {
  return std::any_of(options.begin(), options.end(),
                     [&name](const Option& option) { return option.Name == name; });
}

bool TakesFiles(const Command& command) {
  return command.Operands.empty() || command.Operands.front().Is == Operand::Kind::kFile;
}

/// A command's name may have two.
std::size_t MostWords(const Command& command) {
  return command.Operands.size() + (TakesFiles(command) ? 0 : 1);
}

std::string CheckOperands(const Command& command, std::span<const std::string> operands) {
  const std::string name(command.Name);
  const auto needed =
      std::count_if(command.Operands.begin(), command.Operands.end(),
                    [](const Operand& operand) { return operand.Is == Operand::Kind::kFile; });
  const bool several = std::any_of(command.Operands.begin(), command.Operands.end(),
                                   [](const Operand& operand) { return operand.Several; });
  if (operands.size() < static_cast<std::size_t>(needed) ||
      (!several && operands.size() > MostWords(command))) {
    return name + ": wrong number of " + (TakesFiles(command) ? "files" : "commands");
  }
  const bool nameless = std::any_of(operands.begin(), operands.end(),
                                    [](const std::string& word) { return word.empty(); });
  return nameless && TakesFiles(command) ? name + ": a file without a name" : "";
}

/// What is wrong with the words before any value is looked at.
std::string CheckShape(const Command& command, std::span<const std::string> operands,
                       std::span<const GivenOption> options) {
  for (const GivenOption& option : options) {
    if (!IsAmong(CommonOptions(), option.Name) && !IsAmong(command.Options, option.Name))
      return "--" + option.Name + " does not belong to " + std::string(command.Name);
  }
  return CheckOperands(command, operands);
}

}  // namespace

Request TakeRequest(const CommandWords& given) {
  Request request;
  if (given.Words.empty()) {
    request.Error = "no command";
    return request;
  }
  request.Asked = CommandOf(given.Words);
  if (request.Asked == nullptr) {
    request.Error = UnknownCommand(given.Words);
    return request;
  }
  const auto operands = std::span(given.Words).subspan(WordsOfName(*request.Asked));
  request.Error = CheckShape(*request.Asked, operands, given.Options);
  if (!request.Error.empty()) return request;
  OptionReader reader(operands, given.Options);
  request.What = request.Asked->Prepare(reader);
  request.Error = reader.Error();
  return request;
}

}  // namespace morvane::cli
