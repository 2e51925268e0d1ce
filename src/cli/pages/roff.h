#pragma once

#include <string>
#include <string_view>

#include "cli/pages/document.h"

namespace morvane::pages {

/// The page as `man` takes it. Its head has the version and no day, so that it is the same whenever
/// it is made; no word is cut at the end of a line and no blank stretched.
[[nodiscard]] std::string Roff(const Page& page);

/// `words` as text in it: nothing in them is an instruction, and each character prints as itself.
[[nodiscard]] std::string RoffText(std::string_view words);

}  // namespace morvane::pages
