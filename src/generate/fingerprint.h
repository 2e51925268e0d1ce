#pragma once

#include <string>
#include <string_view>

#include "model/board_set.h"
#include "program/program.h"

namespace morvane::generate {

/// Deals with their board numbers as the text whose SHA-256 is their fingerprint: two sets have the
/// same exactly when deals and numbers are the same.
class FingerprintText {
 public:
  /// Boards come in rising order. `hands` are as in the log, a blank behind each.
  void Add(int number, std::string_view hands);
  /// In 64 lower-case hexadecimal digits.
  [[nodiscard]] std::string Sha256() const;

 private:
  std::string text_;
};

/// The fingerprint of the boards of `set`, which exists.
[[nodiscard]] std::string SetFingerprint(const BoardSet& set);

/// The line that shows the fingerprint of the set made just now. Where the log does not have the
/// set it is kept back, and the line says so: nobody could prove the set later.
[[nodiscard]] std::string FingerprintLine(const Program& program);

}  // namespace morvane::generate
