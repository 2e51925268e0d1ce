#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "program/program.h"

namespace morvane::shell {

/// A board file and the way in which it was opened.
struct RecentFile {
  std::string Path;
  bool Imported = false;
  bool operator==(const RecentFile&) const = default;
};

/// The list as the store keeps it: for each file a letter, "L" for Load or "I" for Import, and its
/// path; a NUL, which no path has, between two. Of a text of other origin what cannot be a file is
/// passed over.
[[nodiscard]] std::string RecentFilesText(const std::vector<RecentFile>& files);
[[nodiscard]] std::vector<RecentFile> ReadRecentFiles(std::string_view text);

/// The board files used last, newest first, each once. They stand in the store and are read afresh
/// each time.
class RecentFiles {
 public:
  static constexpr std::size_t kMost = 8;

  /// From now on the files that the program uses are added. One that could not be taken because it
  /// is gone leaves the list.
  explicit RecentFiles(Program& program);
  ~RecentFiles();
  RecentFiles(const RecentFiles&) = delete;
  RecentFiles& operator=(const RecentFiles&) = delete;

  [[nodiscard]] std::vector<RecentFile> List() const;

 private:
  void Take(const std::string& path, FileUse use);

  Program& program_;
};

}  // namespace morvane::shell
