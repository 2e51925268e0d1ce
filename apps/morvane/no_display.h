#pragma once

#include <string>

namespace morvane {

/// Why no window can be shown, in words for who started the program.
[[nodiscard]] std::string WhyNoDisplay();

}  // namespace morvane
