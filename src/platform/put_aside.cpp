#include "platform/put_aside.h"

#include <filesystem>

#include "platform/files.h"

namespace morvane {

std::string PutAside(const std::string& path) {
  std::error_code failure;
  std::string aside = path + ".damaged";
  for (int n = 2; std::filesystem::exists(PathOfUtf8(aside), failure); ++n) {
    aside = path + ".damaged" + std::to_string(n);
  }
  std::filesystem::rename(PathOfUtf8(path), PathOfUtf8(aside), failure);
  if (failure) return "";
  MakePrivate(aside);
  return aside;
}

}  // namespace morvane
