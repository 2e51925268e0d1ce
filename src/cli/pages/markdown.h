#pragma once

#include <span>
#include <string>
#include <string_view>

#include "cli/pages/document.h"

namespace morvane::pages {

/// The sections with headings of the second level.
[[nodiscard]] std::string Markdown(std::span<const Section> sections);

/// `words` as text in it: nothing in them is a mark.
[[nodiscard]] std::string MarkdownText(std::string_view words);

}  // namespace morvane::pages
