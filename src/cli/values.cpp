#include "cli/values.h"

#include <algorithm>

namespace morvane::cli {
namespace {

constexpr std::string_view kTo = "..";

/// Both ends are one digit.
std::vector<std::string> DigitsOf(std::string_view range) {
  std::vector<std::string> digits;
  for (char digit = range.front(); digit <= range.back(); ++digit) digits.emplace_back(1, digit);
  return digits;
}

}  // namespace

std::vector<std::string> ChoicesOf(std::string_view value) {
  if (value.size() == kTo.size() + 2 && value.substr(1, kTo.size()) == kTo) return DigitsOf(value);
  std::vector<std::string> words;
  if (value.find('|') == std::string_view::npos) return words;
  for (std::size_t at = 0; at <= value.size();) {
    const std::size_t end = std::min(value.find('|', at), value.size());
    words.emplace_back(value.substr(at, end - at));
    at = end + 1;
  }
  return words;
}

std::string ListOf(std::span<const std::string> words) {
  std::string text;
  for (std::size_t at = 0; at < words.size(); ++at) {
    if (at > 0) text += at + 1 == words.size() ? " or " : ", ";
    text += words[at];
  }
  return text;
}

}  // namespace morvane::cli
