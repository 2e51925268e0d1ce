#pragma once

#include "given_words.h"

namespace morvane {

/// What `line`, a whole command line of the system, gives.
[[nodiscard]] GivenWords GivenWordsOfLine(const std::wstring& line);

}  // namespace morvane
