#pragma once

#include "platform/file_beside.h"

namespace morvane {

/// Removes the file if nobody holds its lock: whoever writes it does, from its first byte until it
/// has its last name.
void ClearIfDead(const std::string& path);
/// Takes the file's lock. False when another program has just taken the new file for a dead one's.
/// Where the file system has no locks, nobody else gets one either.
[[nodiscard]] bool SayAlive(FileBeside& beside);

}  // namespace morvane
