#pragma once

#include <span>
#include <string>

#include "audit/logged_set.h"
#include "generate/fingerprint.h"

namespace morvane::audit {

using generate::SetFingerprint;

/// The fingerprint of boards in a log, each of which is there once.
[[nodiscard]] std::string SetFingerprint(std::span<const LoggedRecord> records);

}  // namespace morvane::audit
