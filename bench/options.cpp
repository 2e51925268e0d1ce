#include "bench/options.h"

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <cstdlib>

namespace morvane::bench {

Options::Options(int argc, char** argv, std::initializer_list<std::string_view> names)
    : program_(argv[0]), names_(names) {
  for (int i = 1; i < argc; ++i) {
    std::string_view argument = argv[i];
    const std::size_t equals = argument.find('=');
    if (!argument.starts_with("--") || equals == std::string_view::npos) Usage();
    const std::string_view name = argument.substr(2, equals - 2);
    if (std::find(names_.begin(), names_.end(), name) == names_.end()) Usage();
    values_.emplace_back(name, argument.substr(equals + 1));
  }
}

std::optional<std::string> Options::Text(std::string_view name) const {
  const auto at = std::find_if(values_.rbegin(), values_.rend(),
                               [name](const auto& value) { return value.first == name; });
  if (at == values_.rend()) return std::nullopt;
  return at->second;
}

template <typename Number>
std::optional<Number> Options::Parsed(std::string_view name) const {
  const auto text = Text(name);
  if (!text) return std::nullopt;
  Number number{};
  const char* const end = text->data() + text->size();
  const auto result = std::from_chars(text->data(), end, number);
  if (result.ec != std::errc() || result.ptr != end) Usage();
  return number;
}

std::optional<std::uint64_t> Options::Whole(std::string_view name) const {
  return Parsed<std::uint64_t>(name);
}

std::optional<double> Options::Real(std::string_view name) const { return Parsed<double>(name); }

void Options::Usage() const {
  std::string usage = "usage: " + program_;
  for (const std::string_view name : names_) usage.append(" [--").append(name).append("=...]");
  std::fprintf(stderr, "%s\n", usage.c_str());
  std::exit(2);
}

std::string Grouped(std::int64_t number) {
  std::string text = std::to_string(number);
  for (std::size_t at = text.size(); at > 3;) {
    at -= 3;
    text.insert(at, 1, ',');
  }
  return text;
}

}  // namespace morvane::bench
