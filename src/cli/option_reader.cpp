#include "cli/option_reader.h"

#include <algorithm>
#include <charconv>

#include "cli/values.h"
#include "platform/files.h"
#include "text/text.h"

namespace morvane::cli {
namespace {

/// The number from `lowest` on that the whole text is; blanks around it and a plus sign are no
/// harm.
template <typename Number>
std::optional<Number> NumberOf(const std::string& text, Number lowest) {
  const std::string digits = Trim(text);
  const char* const end = digits.data() + digits.size();
  const char* const begin = digits.data() + (digits.starts_with("+") ? 1 : 0);
  Number number = 0;
  const auto result = std::from_chars(begin, end, number);
  if (result.ec != std::errc() || result.ptr != end || number < lowest) return std::nullopt;
  return number;
}

}  // namespace

std::optional<std::string> OptionReader::Word(std::size_t at) const {
  if (at >= operands_.size()) return std::nullopt;
  return operands_[at];
}

std::string OptionReader::Path(std::size_t at) const {
  return at < operands_.size() ? AbsolutePath(operands_[at]) : "";
}

bool OptionReader::Has(std::string_view name) const { return Text(name).has_value(); }

std::optional<std::string> OptionReader::Text(std::string_view name) const {
  const auto option = std::find_if(options_.rbegin(), options_.rend(),
                                   [name](const GivenOption& given) { return given.Name == name; });
  if (option == options_.rend()) return std::nullopt;
  return option->Value;
}

std::vector<std::string> OptionReader::Texts(std::string_view name) const {
  std::vector<std::string> values;
  for (const GivenOption& given : options_) {
    if (given.Name == name) values.push_back(given.Value);
  }
  return values;
}

std::optional<int> OptionReader::Number(std::string_view name) {
  const auto text = Text(name);
  if (!text) return std::nullopt;
  const auto number = NumberOf(*text, 1);
  if (!number) Wrong(name, *text, "a number above 0");
  return number;
}

std::optional<std::int64_t> OptionReader::NumberUpTo(std::string_view name, std::int64_t highest) {
  const auto text = Text(name);
  if (!text) return std::nullopt;
  const auto number = NumberOf<std::int64_t>(*text, 0);
  if (number && *number <= highest) return number;
  Wrong(name, *text, "a number from 0 to " + std::to_string(highest));
  return std::nullopt;
}

std::optional<std::string> OptionReader::BoardNumber(std::string_view name) {
  auto text = Text(name);
  if (!text) return std::nullopt;
  const bool digits = text->find_first_not_of("0123456789") == std::string::npos;
  if (digits && !text->empty() && text->size() <= 3) return text;
  Wrong(name, *text, "a number up to 999");
  return std::nullopt;
}

std::optional<bool> OptionReader::Switch(std::string_view name) {
  const auto text = Text(name);
  if (!text) return std::nullopt;
  if (*text == "on" || *text == "off") return *text == "on";
  Wrong(name, *text, "on or off");
  return std::nullopt;
}

std::optional<std::string> OptionReader::Choice(const Option& option) {
  auto text = Text(option.Name);
  const std::vector<std::string> words = ChoicesOf(option.Value);
  if (!text || std::find(words.begin(), words.end(), *text) != words.end()) return text;
  Wrong(option.Name, *text, ListOf(words));
  return std::nullopt;
}

std::optional<std::string> OptionReader::Hex(std::string_view name, std::size_t digits) {
  auto text = Text(name);
  if (!text) return std::nullopt;
  const bool hex = text->find_first_not_of("0123456789abcdefABCDEF") == std::string::npos;
  if (hex && text->size() == digits) return text;
  Wrong(name, *text, std::to_string(digits) + " hexadecimal digits");
  return std::nullopt;
}

void OptionReader::Refuse(const std::string& error) {
  if (error_.empty()) error_ = error;
}

void OptionReader::Wrong(std::string_view name, const std::string& text,
                         const std::string& wanted) {
  Refuse("--" + std::string(name) + " " + text + ": wanted " + wanted);
}

}  // namespace morvane::cli
