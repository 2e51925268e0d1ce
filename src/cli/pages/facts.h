#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "cli/command.h"
#include "cli/pages/document.h"

namespace morvane::pages {

/// Blocks that several pages have.
[[nodiscard]] Paragraph Says(std::string_view words);
/// A page has the forms of a machine, for which a usage sends to --help: `machines` says where.
[[nodiscard]] Definitions OptionTable(std::span<const cli::Option> options,
                                      std::string_view machines = {});
[[nodiscard]] Definitions OperandTable(std::span<const cli::Operand> operands);
[[nodiscard]] Definitions MachineTable();
[[nodiscard]] Definitions KeyTable();
[[nodiscard]] Definitions OperatorTable();
[[nodiscard]] Definitions FileTable();
[[nodiscard]] Definitions VariableTable();

/// What a program or command is called with.
[[nodiscard]] Synopsis Called(std::string_view name, std::span<const cli::Operand> operands,
                              std::span<const cli::Option> options);

/// "morvane(1), morvane-cli(1)".
[[nodiscard]] Section SeeAlso(const std::vector<std::string>& pages);

}  // namespace morvane::pages
