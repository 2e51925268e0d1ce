#pragma once

#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace morvane::bench {

/// The arguments of a program, all of the form --name=value.
class Options {
 public:
  /// Ends the program with status 2 and a word on the usage when an argument is not among `names`.
  Options(int argc, char** argv, std::initializer_list<std::string_view> names);
  [[nodiscard]] std::optional<std::string> Text(std::string_view name) const;
  /// Both end the program in the same way when the value is not a number.
  [[nodiscard]] std::optional<std::uint64_t> Whole(std::string_view name) const;
  [[nodiscard]] std::optional<double> Real(std::string_view name) const;

 private:
  template <typename Number>
  [[nodiscard]] std::optional<Number> Parsed(std::string_view name) const;
  [[noreturn]] void Usage() const;

  std::string program_;
  std::vector<std::string_view> names_;
  std::vector<std::pair<std::string, std::string>> values_;
};

/// 1234567 as "1,234,567".
[[nodiscard]] std::string Grouped(std::int64_t number);

}  // namespace morvane::bench
