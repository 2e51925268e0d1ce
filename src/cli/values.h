#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace morvane::cli {

/// The words of which a value is one, where the word that stands for it names them: "a4|letter",
/// or "0..6". None otherwise.
[[nodiscard]] std::vector<std::string> ChoicesOf(std::string_view value);

/// "one, two or three".
[[nodiscard]] std::string ListOf(std::span<const std::string> words);

}  // namespace morvane::cli
