#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "cli/command.h"

namespace morvane::cli {

/// `pieces` behind `start`, a blank before each. A line that would be longer than 80 characters
/// goes on in the next, behind `indent` blanks.
[[nodiscard]] std::string Wrapped(const std::string& start, std::size_t indent,
                                  const std::vector<std::string>& pieces);

[[nodiscard]] std::string Paragraph(std::string_view text);

/// An option with its value, and a word that stands for an operand; what may be left out in
/// brackets.
[[nodiscard]] std::string TextOf(const Option& option);
[[nodiscard]] std::string TextOf(const Operand& operand);

/// As a usage line has them: what may be left out stands in brackets.
[[nodiscard]] std::vector<std::string> Bracketed(std::span<const Option> options);

/// What a row explains, and what it says of it.
struct Row {
  std::string What;
  std::string_view Means;
};
[[nodiscard]] std::vector<Row> RowsOf(std::span<const Operand> operands,
                                      std::span<const Option> options);
[[nodiscard]] std::string Table(const std::vector<Row>& rows);

}  // namespace morvane::cli
