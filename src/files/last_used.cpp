#include "files/last_used.h"

#include <algorithm>
#include <cstdlib>

#include "model/text.h"
#include "platform/files.h"
#include "program/setting_keys.h"

namespace morvane::files {

std::string InitialDirectory(const Settings& store) {
  std::string folder = store.Get(kInitDirectory);
#ifndef _WIN32
  // Where there are no drives, the default means the user's own folder.
  if (folder == kInitDirectory.Default) {
    const char* const home = std::getenv("HOME");
    folder = home == nullptr ? "" : home;
  }
#endif
  return folder;
}

void RememberFile(Settings& store, const std::string& path) {
  constexpr std::size_t kExtension = 3;
  const std::size_t start = path.size() - std::min(path.size(), kExtension);
  store.Set(kInitFormat, LowerCase(path.substr(start)));
  if (!path.empty()) store.Set(kInitDirectory, FolderOf(path));
}

}  // namespace morvane::files
