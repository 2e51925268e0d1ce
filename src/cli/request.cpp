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

std::string CheckOperands(const Command& command, std::span<const std::string> operands) {
  const std::string name(command.Name);
  const auto needed =
      std::count_if(command.Operands.begin(), command.Operands.end(),
                    [](const Operand& operand) { return operand.Is == Operand::Kind::kFile; });
  if (operands.size() < static_cast<std::size_t>(needed) ||
      operands.size() > command.Operands.size()) {
    return name + ": wrong number of " + (TakesFiles(command) ? "files" : "commands");
  }
  for (std::size_t i = 0; i < operands.size(); ++i) {
    if (operands[i].empty() && command.Operands[i].Is == Operand::Kind::kFile)
      return name + ": a file without a name";
  }
  return "";
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
  request.Asked = FindCommand(given.Words.front());
  if (request.Asked == nullptr) {
    request.Error = UnknownCommand(given.Words.front());
    return request;
  }
  const auto operands = std::span(given.Words).subspan(1);
  request.Error = CheckShape(*request.Asked, operands, given.Options);
  if (!request.Error.empty()) return request;
  OptionReader reader(operands, given.Options);
  request.What = request.Asked->Prepare(reader);
  request.Error = reader.Error();
  return request;
}

}  // namespace morvane::cli
