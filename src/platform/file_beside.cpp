#include "platform/file_beside.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdint>
#include <string_view>
#include <vector>

#include "platform/utf8_of_path.h"

#ifdef _WIN32
#include "platform/windows/file_beside.h"
#include "platform/windows/opening.h"
#else
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/private_file.h"
#endif

namespace morvane {
namespace {

constexpr std::string_view kStart = "morvane.new.";
constexpr std::size_t kDigits = 16;

/// "morvane.new." and 16 hexadecimal digits: nobody calls a file of his own so.
std::string NewName() {
  static constexpr std::string_view kHex = "0123456789abcdef";
  auto number = static_cast<std::uint64_t>(
      std::chrono::high_resolution_clock::now().time_since_epoch().count());
  std::string name(kStart);
  for (std::size_t i = 0; i < kDigits; ++i, number >>= 4U) name += kHex[number & 15U];
  return name;
}

bool IsOurs(std::string_view name) {
  return name.size() == kStart.size() + kDigits && name.starts_with(kStart) &&
         name.find_first_not_of("0123456789abcdef", kStart.size()) == std::string_view::npos;
}

}  // namespace

#ifndef _WIN32

OpenedFile OpenToWrite(const std::string& path, Opening opening, NewFile access) {
  const int flags = O_WRONLY | O_CREAT | O_NONBLOCK | (opening == Opening::kNew ? O_EXCL : O_TRUNC);
  const int file = OpenWithRights(path, flags, access);
  if (file < 0) return nullptr;
  fcntl(file, F_SETFL, 0);
  return OpenedFile(fdopen(file, "wb"));
}

void CutOff(std::FILE& file, std::uint64_t size) {
  [[maybe_unused]] const int answer = ftruncate(fileno(&file), static_cast<off_t>(size));
}

bool LeadsTo(const std::string& path, std::FILE& file) {
  struct stat opened {};
  struct stat named {};
  return fstat(fileno(&file), &opened) == 0 && lstat(path.c_str(), &named) == 0 &&
         named.st_ino == opened.st_ino && named.st_dev == opened.st_dev;
}

namespace {

/// The system says so itself when the file is to have its last name.
bool MayBeNamed(const std::string& /*path*/) { return true; }

/// The system renames and removes by names.
bool Hold(const FileBeside& /*beside*/) { return true; }

/// Removes the file if nobody holds its lock: whoever writes it does, from its first byte until it
/// has its last name.
void ClearIfDead(const std::string& path) {
  const int file = open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOFOLLOW | O_CLOEXEC);
  if (file < 0) return;
  struct stat opened {};
  struct stat named {};
  if (fstat(file, &opened) == 0 && S_ISREG(opened.st_mode) && opened.st_uid == geteuid() &&
      flock(file, LOCK_EX | LOCK_NB) == 0 && lstat(path.c_str(), &named) == 0 &&
      named.st_ino == opened.st_ino && named.st_dev == opened.st_dev) {
    unlink(path.c_str());
  }
  close(file);
}

/// Takes the file's lock. False when another program has just taken the new file for a dead one's.
/// Where the file system has no locks, nobody else gets one either.
bool SayAlive(FileBeside& beside) {
  const int file = dup(fileno(beside.File.get()));
  if (file < 0) return true;
  beside.Alive = std::shared_ptr<void>(nullptr, [file](void*) { close(file); });
  struct stat status {};
  if (flock(file, LOCK_EX | LOCK_NB) != 0) return errno != EWOULDBLOCK;
  return fstat(file, &status) != 0 || status.st_nlink > 0;
}

}  // namespace

#endif

namespace {

void ClearLeftBeside(const std::string& folder) {
  std::error_code failure;
  std::vector<std::string> left;
  std::filesystem::directory_iterator entry(PathOfUtf8(folder.empty() ? "." : folder), failure);
  for (; !failure && entry != std::filesystem::directory_iterator(); entry.increment(failure)) {
    const std::string name = Utf8OfPath(entry->path().filename());
    if (IsOurs(name)) left.push_back(folder + name);
  }
  for (const std::string& path : left) ClearIfDead(path);
}

}  // namespace

FileBeside OpenBeside(const std::string& path, NewFile access) {
  constexpr int kMostNames = 1000;
  FileBeside beside;
  if (!MayBeNamed(path)) return beside;
  ClearLeftBeside(FolderOf(path));
  for (int i = 0; i < kMostNames; ++i) {
    beside.Name = FolderOf(path) + NewName();
    beside.File = OpenToWrite(beside.Name, Opening::kNew, access);
    if (!beside.File && errno != EEXIST) break;
    if (beside.File && SayAlive(beside)) break;
    beside = {};
  }
  return beside;
}

FileBeside OpenOwnBeside(const std::string& path, NewFile access) {
  FileBeside beside;
  beside.Name = path + ".new";
  beside.File = OpenToWrite(beside.Name, Opening::kOver, access);
  if (beside.File && !Hold(beside)) beside.File.reset();
  return beside;
}

}  // namespace morvane
