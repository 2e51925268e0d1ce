#pragma once

#include <optional>
#include <string>

#include "platform/file_lock.h"
#include "platform/lock_patience.h"
#include "platform/runtime_error.h"

namespace morvane {

// The folder of logs and history, which several programs of ours may share: the desktop, a second
// one with its own settings, the command line.

/// Makes the folder where it is missing, and it its user's alone: it says tonight's boards. What
/// went wrong when it can't be used, because it is another user's, for instance.
[[nodiscard]] std::optional<RuntimeError> EnterDataFolder(const std::string& folder);

/// The same for a folder that must be there by now.
[[nodiscard]] std::optional<RuntimeError> WhyNoDataFolder(const std::string& folder);

/// Held while one line or one entry is added, so that no program loses what another one adds. Never
/// while a box is open: the box's own line in the log would wait for it for seconds. Nothing where
/// it cannot be had within `patience`, and `RuntimeError::Last` says why: a line of the log is
/// added all the same, an entry of the history is not.
[[nodiscard]] std::optional<FileLock> LockDataFolder(const std::string& folder,
                                                     LockPatience& patience);

/// The folder in which the data folder lies; its boxes name it.
[[nodiscard]] std::string BasePathOf(const std::string& dataFolder);

}  // namespace morvane
