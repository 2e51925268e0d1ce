#pragma once

#include "platform/file_beside.h"

namespace morvane {

/// Removes the file if nobody holds its lock: whoever writes it does, from its first byte until it
/// has its last name.
void ClearIfDead(const std::string& path);
/// Opens the file once more, to be renamed or removed by this opening whatever rights it takes over
/// from the one that it replaces. False, and `errno`, when that cannot be.
[[nodiscard]] bool Hold(FileBeside& beside);
/// Holds the file and takes its lock. False when another program has just taken the new file for a
/// dead one's. Where the file system has no locks, nobody else gets one either.
[[nodiscard]] bool SayAlive(FileBeside& beside);

/// Gives the held file its last name. Its lock is let go behind that, with `beside`: in between
/// another program would take it for a dead one's.
[[nodiscard]] std::optional<RuntimeError> Rename(const FileBeside& beside, const std::string& to);
/// Removes the held file.
void Discard(const FileBeside& beside);

}  // namespace morvane
