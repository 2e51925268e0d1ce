#pragma once

#include <string>
#include <vector>

namespace morvane::pages {

struct PageFile {
  std::string Path;  ///< below the folder, "man1/morvane.1"
  std::string Bytes;
};

/// The manual, the completions and the commands for the guide.
[[nodiscard]] std::vector<PageFile> PageFiles();

/// Writes them below `folder`. What went wrong; empty where nothing did.
[[nodiscard]] std::string WritePageFiles(const std::string& folder);

}  // namespace morvane::pages
