#pragma once

#include <string>
#include <string_view>

namespace morvane {

// The system's own texts are UTF-16, ours UTF-8. What is no text in the one becomes U+FFFD in the
// other.

[[nodiscard]] std::wstring Wide(std::string_view text);
[[nodiscard]] std::string Utf8(std::wstring_view text);

}  // namespace morvane
