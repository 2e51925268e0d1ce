#include "shell/recent_files.h"

#include <algorithm>
#include <filesystem>

#include "platform/files.h"

namespace morvane::shell {
namespace {

constexpr char kLoad = 'L';
constexpr char kImport = 'I';
constexpr char kBetween = '\0';

/// Under either path the system finds the same file; one that is gone is known by its path alone.
bool IsSameFile(const std::string& one, const std::string& other) {
  if (one == other) return true;
  std::error_code gone;
  return std::filesystem::equivalent(PathOfUtf8(one), PathOfUtf8(other), gone) && !gone;
}

bool IsGone(const std::string& path) {
  std::error_code failure;
  const auto status = std::filesystem::status(PathOfUtf8(path), failure);
  return status.type() == std::filesystem::file_type::not_found;
}

void TakeEntry(std::string_view entry, std::vector<RecentFile>& files) {
  if (entry.size() < 2 || (entry.front() != kLoad && entry.front() != kImport)) return;
  const std::string path(entry.substr(1));
  const bool known = std::any_of(files.begin(), files.end(),
                                 [&](const RecentFile& file) { return file.Path == path; });
  if (!known) files.push_back({path, entry.front() == kImport});
}

}  // namespace

std::string RecentFilesText(const std::vector<RecentFile>& files) {
  std::string text;
  for (const RecentFile& file : files) {
    if (!text.empty()) text += kBetween;
    text += file.Imported ? kImport : kLoad;
    text += file.Path;
  }
  return text;
}

std::vector<RecentFile> ReadRecentFiles(std::string_view text) {
  std::vector<RecentFile> files;
  while (!text.empty() && files.size() < RecentFiles::kMost) {
    const std::size_t end = std::min(text.find(kBetween), text.size());
    TakeEntry(text.substr(0, end), files);
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return files;
}

RecentFiles::RecentFiles(Program& program) : program_(program) {
  program_.OnFileUsed = [this](const std::string& path, FileUse use) { Take(path, use); };
}

RecentFiles::~RecentFiles() {
  program_.OnFileUsed = [](const std::string& /*path*/, FileUse /*use*/) {};
}

std::vector<RecentFile> RecentFiles::List() const {
  return ReadRecentFiles(program_.Store.Get(kRecentFiles));
}

void RecentFiles::Take(const std::string& path, FileUse use) {
  const std::string used = AbsolutePath(path);
  if (use == FileUse::kRefused && !IsGone(used)) return;
  const std::vector<RecentFile> before = List();
  std::vector<RecentFile> files = before;
  std::erase_if(files, [&](const RecentFile& file) { return IsSameFile(file.Path, used); });
  if (use != FileUse::kRefused) files.insert(files.begin(), {used, use == FileUse::kImported});
  if (files.size() > kMost) files.resize(kMost);
  if (files != before) program_.StoreSetting(kRecentFiles, RecentFilesText(files));
}

}  // namespace morvane::shell
