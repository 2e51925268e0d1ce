#pragma once

#include <optional>
#include <string>

#include "platform/file_lock.h"
#include "platform/runtime_error.h"

namespace morvane {

// The folder of logs and history, which several programs of ours may share: the desktop, a second
// one with its own settings, the command line.

/// Makes the folder where it is missing; what went wrong when it can't be used.
[[nodiscard]] std::optional<RuntimeError> EnterDataFolder(const std::string& folder);

/// Held while one line or one entry is added, so that no program loses what another one adds. Never
/// while a box is open: the box's own line in the log would wait for it for seconds. Nothing where
/// it cannot be had, and `RuntimeError::Last` says why: a line of the log is added all the same, an
/// entry of the history is not.
[[nodiscard]] std::optional<FileLock> LockDataFolder(const std::string& folder);

}  // namespace morvane
