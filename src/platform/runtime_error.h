#pragma once

#include <cerrno>
#include <string>
#include <system_error>

namespace morvane {

/// A failure of the operating system: its number and its own words.
struct RuntimeError {
  int Number = 0;
  std::string Description;

  [[nodiscard]] static RuntimeError OfNumber(int number) {
    return {number, std::generic_category().message(number)};
  }
  [[nodiscard]] static RuntimeError Of(const std::error_code& code) {
    return {code.value(), code.message()};
  }
  /// The error that the last system call left behind.
  [[nodiscard]] static RuntimeError Last() { return OfNumber(errno); }
};

}  // namespace morvane
