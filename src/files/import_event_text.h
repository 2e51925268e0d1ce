#pragma once

#include <string>
#include <string_view>

#include "text/number_filter.h"

namespace morvane::files {

/// An event text of another program as this one can show and save it.
struct EventText {
  std::string Text;       ///< at most `kLongestEventText` characters
  bool Replaced = false;  ///< something in it can't be saved as PBN and was replaced
  bool Cut = false;
};
[[nodiscard]] EventText MakeEventText(std::string_view value);

}  // namespace morvane::files
