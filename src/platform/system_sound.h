#pragma once

#include <memory>

#include "platform/sound.h"

namespace morvane {

/// Sound as the system plays it.
[[nodiscard]] std::unique_ptr<Sound> MakeSystemSound();

}  // namespace morvane
