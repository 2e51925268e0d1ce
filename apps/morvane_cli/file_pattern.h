#pragma once

#include <string>
#include <vector>

namespace morvane {

/// The files that `pattern` means, sorted by name: in its last part `*` stands for any characters,
/// `?` for one, and large and small letters are the same. The word itself where it has neither, or
/// where no file fits.
[[nodiscard]] std::vector<std::string> FilesThatFit(const std::string& pattern);

}  // namespace morvane
