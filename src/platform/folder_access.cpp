#include "platform/folder_access.h"

#include <fcntl.h>
#include <unistd.h>

#include <filesystem>

#include "platform/files.h"

namespace morvane {

std::optional<RuntimeError> WhyNotEntered(const std::string& folder) {
  std::error_code failure;
  if (!std::filesystem::is_directory(PathOfUtf8(folder), failure)) {
    return failure ? RuntimeError::Of(failure) : RuntimeError::OfNumber(ENOTDIR);
  }
  if (faccessat(AT_FDCWD, folder.c_str(), X_OK, AT_EACCESS) != 0) return RuntimeError::Last();
  return std::nullopt;
}

std::optional<RuntimeError> WhyNotTrusted(const std::string& /*folder*/) { return std::nullopt; }

}  // namespace morvane
