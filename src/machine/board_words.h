#pragma once

#include <string>

#include "machine/display_hand.h"

namespace morvane::machine {

/// What `Picture1` shows, for who cannot see it: UTF-8, sentences in one line.
[[nodiscard]] std::string BoardInWords(const BoardDisplay& display);

/// The same while its cards fall: the machine does not tell which ones.
[[nodiscard]] std::string BoardUnderWayInWords(const BoardDisplay& display);

}  // namespace morvane::machine
