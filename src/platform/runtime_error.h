#pragma once

#include <cerrno>
#include <string>
#include <system_error>

namespace morvane {

#ifdef _WIN32
/// The `errno` that says best what the system's error `number` means.
[[nodiscard]] int ErrnoOf(unsigned long number);
/// What an `errno` means; the C library has no words for the newer ones, and odd ones for some.
[[nodiscard]] std::string WordsOfErrno(int number);
#endif

/// A failure of the operating system: its number and its own words.
struct RuntimeError {
  int Number = 0;
  std::string Description;

#ifdef _WIN32
  [[nodiscard]] static RuntimeError OfNumber(int number) { return {number, WordsOfErrno(number)}; }
  [[nodiscard]] static RuntimeError Of(const std::error_code& code) {
    const bool isSystems = code.category() == std::system_category();
    return OfNumber(isSystems ? ErrnoOf(static_cast<unsigned long>(code.value())) : code.value());
  }
#else
  [[nodiscard]] static RuntimeError OfNumber(int number) {
    return {number, std::generic_category().message(number)};
  }
  [[nodiscard]] static RuntimeError Of(const std::error_code& code) {
    return {code.value(), code.message()};
  }
#endif
  /// The error that the last system call left behind.
  [[nodiscard]] static RuntimeError Last() { return OfNumber(errno); }
};

}  // namespace morvane
