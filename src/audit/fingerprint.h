#pragma once

#include <span>
#include <string>

#include "audit/logged_set.h"
#include "model/board_set.h"

namespace morvane::audit {

/// The SHA-256 of the boards of `set`, which exists, in 64 lower-case hexadecimal digits. Deals and
/// board numbers alone make it: two sets have the same exactly when these are the same.
[[nodiscard]] std::string SetFingerprint(const BoardSet& set);

/// The same of boards in a log, each of which is there once.
[[nodiscard]] std::string SetFingerprint(std::span<const LoggedRecord> records);

}  // namespace morvane::audit
