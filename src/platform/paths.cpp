#include "platform/paths.h"

#include <filesystem>

#include "platform/files.h"
#include "platform/utf8_of_path.h"

namespace morvane {

bool IsAbsolutePath(std::string_view path) { return path.starts_with('/'); }

std::string AbsolutePath(std::string_view path) {
  std::error_code failure;
  const auto absolute = std::filesystem::absolute(PathOfUtf8(path), failure);
  if (failure) return std::string(path);
  return Utf8OfPath(absolute);
}

std::string TruePath(const std::string& path) {
  std::error_code failure;
  const auto found = std::filesystem::weakly_canonical(PathOfUtf8(path), failure);
  return failure ? path : Utf8OfPath(found);
}

}  // namespace morvane
