#pragma once

#include <filesystem>
#include <string>

namespace morvane {

/// The text of a file-system path; `PathOfUtf8` of `platform/files.h` is the way back.
[[nodiscard]] inline std::string Utf8OfPath(const std::filesystem::path& path) {
  const std::u8string text = path.u8string();
  return {text.begin(), text.end()};
}

}  // namespace morvane
