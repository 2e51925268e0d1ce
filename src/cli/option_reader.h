#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "cli/command.h"

namespace morvane::cli {

/// An option of a command line with its value; that of a switch is empty.
struct GivenOption {
  std::string Name;
  std::string Value;
};

/// Gives the words of a command line as what they mean. A value that was not given, or is wrong, is
/// empty; the first that is wrong leaves its words in `Error`.
class OptionReader {
 public:
  OptionReader(std::span<const std::string> operands, std::span<const GivenOption> options)
      : operands_(operands), options_(options) {}

  /// How many operands there are.
  [[nodiscard]] std::size_t Words() const { return operands_.size(); }
  /// The operand that stands there, counted from 0; empty when it was left out.
  [[nodiscard]] std::optional<std::string> Word(std::size_t at) const;
  /// The path that stands there, absolute.
  [[nodiscard]] std::string Path(std::size_t at) const;

  [[nodiscard]] bool Has(std::string_view name) const;
  /// Of an option given twice the last counts.
  [[nodiscard]] std::optional<std::string> Text(std::string_view name) const;
  /// Every value of an option that may stand there several times, in order.
  [[nodiscard]] std::vector<std::string> Texts(std::string_view name) const;
  /// A number from 1 on.
  std::optional<int> Number(std::string_view name);
  /// A number from 0 to `highest`.
  std::optional<std::int64_t> NumberUpTo(std::string_view name, std::int64_t highest);
  /// What a board number box takes; whether there is such a board is seen when it is used.
  std::optional<std::string> BoardNumber(std::string_view name);
  /// "on" or "off".
  std::optional<bool> Switch(std::string_view name);
  /// One of the words that the option takes, `ChoicesOf` its value.
  std::optional<std::string> Choice(const Option& option);
  /// So many hexadecimal digits of either case.
  std::optional<std::string> Hex(std::string_view name, std::size_t digits);

  /// Says what is wrong, unless something was before.
  void Refuse(const std::string& error);
  /// What is wrong; empty when nothing is.
  [[nodiscard]] const std::string& Error() const { return error_; }

 private:
  void Wrong(std::string_view name, const std::string& text, const std::string& wanted);

  std::span<const std::string> operands_;
  std::span<const GivenOption> options_;
  std::string error_;
};

}  // namespace morvane::cli
