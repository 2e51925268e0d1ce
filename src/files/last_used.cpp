#include "files/last_used.h"

#include <algorithm>

#include "platform/files.h"
#include "platform/user_folders.h"
#include "text/text.h"

namespace morvane::files {

std::string InitialDirectory(const Settings& store) {
  std::string folder = store.Get(kInitDirectory);
#ifndef _WIN32
  // Where there are no drives, the default means the user's own folder.
  if (folder == kInitDirectory.Default) folder = HomeFolder();
#endif
  return folder;
}

void RememberFile(Program& program, const std::string& path) {
  constexpr std::size_t kExtension = 3;  // of the path, whatever its extension is: required
  const std::size_t start = path.size() - std::min(path.size(), kExtension);
  program.StoreSetting(kInitFormat, LowerCase(path.substr(start)));
  if (!path.empty()) program.StoreSetting(kInitDirectory, FolderOf(path));
}

}  // namespace morvane::files
