#pragma once

#include <cstdint>
#include <cstdio>
#include <memory>
#include <string>

#include "platform/files.h"

namespace morvane {

// The files that a save writes beside the one it replaces.

struct FileCloser {
  void operator()(std::FILE* file) const { std::fclose(file); }
};
using OpenedFile = std::unique_ptr<std::FILE, FileCloser>;

/// How the system opens a file to write: over what is there, or only where nothing is.
enum class Opening { kOver, kNew };

/// None, and `errno`, when it cannot be opened; a pipe that nobody reads is not waited for.
[[nodiscard]] OpenedFile OpenToWrite(const std::string& path, Opening opening, NewFile access);

/// Shortens an open file to its first `size` bytes, whatever its name is by now.
void CutOff(std::FILE& file, std::uint64_t size);
/// Whether `path` is a name of this open file, and not of another that was put there.
[[nodiscard]] bool LeadsTo(const std::string& path, std::FILE& file);

/// An open file, its name, and what says as long as it lives that its writer lives.
struct FileBeside {
  OpenedFile File;
  std::string Name;
  std::shared_ptr<void> Alive;
};

/// A file in the folder of `path` under a name that nothing had; what stands there is someone
/// else's. The name is short: the file's own may be as long as names can be. What a writer that is
/// dead left under such a name goes. No `File`, and `errno`, when there can be none.
[[nodiscard]] FileBeside OpenBeside(const std::string& path, NewFile access);

/// The same under the one name that only the holder of the file's lock uses.
[[nodiscard]] FileBeside OpenOwnBeside(const std::string& path, NewFile access);

}  // namespace morvane
