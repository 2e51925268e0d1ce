#include <cstdio>
#include <utility>

#include "platform/file_beside.h"
#include "platform/files.h"
#include "platform/write_check.h"

#ifdef _WIN32
#include <io.h>

#include "platform/windows/access_list.h"
#include "platform/windows/file_beside.h"
#else
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace morvane {
namespace {

#ifdef _WIN32

bool Sync(std::FILE* file) { return _commit(_fileno(file)) == 0; }

// Where the replacement cannot take over what the old file was.
void KeepOwner(const FileBeside& beside, const std::string& old) {
  CopyAccess(PathOfUtf8(old).wstring(), PathOfUtf8(beside.Name).wstring());
}

#else

bool Sync(std::FILE* file) { return fsync(fileno(file)) == 0; }

/// Gives the file to the owner and the group of `old`, as far as the system lets us.
void KeepOwner(const FileBeside& beside, const std::string& old) {
  const int file = fileno(beside.File.get());
  struct stat status {};
  if (stat(old.c_str(), &status) != 0) return;
  if (fchown(file, status.st_uid, status.st_gid) != 0) {
    [[maybe_unused]] const int group = fchown(file, static_cast<uid_t>(-1), status.st_gid);
  }
}

std::optional<RuntimeError> Rename(const FileBeside& beside, const std::string& to) {
  std::error_code failure;
  std::filesystem::rename(PathOfUtf8(beside.Name), PathOfUtf8(to), failure);
  if (failure) return RuntimeError::Of(failure);
  return std::nullopt;
}

void Discard(const FileBeside& beside) {
  std::error_code failure;
  std::filesystem::remove(PathOfUtf8(beside.Name), failure);
}

#endif

/// When written bytes count as written: in the system's hands, or where a power cut leaves them.
enum class Lasting { kUsual, kSafe };

std::optional<RuntimeError> WriteAndClose(OpenedFile file, std::string_view bytes,
                                          Lasting lasting = Lasting::kUsual) {
  if (!file) return RuntimeError::Last();
  if (std::fwrite(bytes.data(), 1, bytes.size(), file.get()) != bytes.size() ||
      std::fflush(file.get()) != 0) {
    return RuntimeError::Last();
  }
  if (lasting == Lasting::kSafe && !Sync(file.get())) return RuntimeError::Last();
  // A network drive may refuse the bytes only now.
  if (std::fclose(file.release()) != 0) return RuntimeError::Last();
  return std::nullopt;
}

/// What a replacement has in common with the file `old`, which is there.
void TakeAfter(const FileBeside& beside, const std::string& old, NewFile access) {
  if (access == NewFile::kPrivate) MakePrivate(old);
  KeepOwner(beside, old);
  std::error_code failure;  // a file system without permissions may refuse them
  const auto rights = std::filesystem::status(PathOfUtf8(old), failure).permissions();
  if (!failure) {
    std::filesystem::permissions(PathOfUtf8(beside.Name), rights & std::filesystem::perms::all,
                                 failure);
  }
}

using BesideOpener = FileBeside (*)(const std::string& path, NewFile access);

/// Writes beside and renames. `old`: a plain file is there.
std::optional<RuntimeError> PutNew(const std::string& path, std::string_view bytes, NewFile access,
                                   BesideOpener openBeside, bool old) {
  FileBeside beside = openBeside(path, old ? NewFile::kPrivate : access);
  if (!beside.File) return RuntimeError::Last();
  if (old) TakeAfter(beside, path, access);
  auto error = WriteAndClose(std::move(beside.File), bytes, Lasting::kSafe);
  if (!error) error = Rename(beside, path);
  if (error) Discard(beside);
  return error;
}

std::optional<RuntimeError> Write(const std::string& path, std::string_view bytes, NewFile access,
                                  BesideOpener openBeside) {
  std::error_code failure;
  const auto old = std::filesystem::symlink_status(PathOfUtf8(path), failure);
  const bool replaces = std::filesystem::is_regular_file(old);
  if (!replaces && std::filesystem::exists(old)) {
    return WriteAndClose(OpenToWrite(path, Opening::kOver, access), bytes);
  }
  // Renaming would not ask the old file.
  if (replaces && !MayWrite(path)) return RuntimeError::Last();
  return PutNew(path, bytes, access, openBeside, replaces);
}

}  // namespace

std::optional<RuntimeError> WriteFile(const std::string& name, std::string_view bytes,
                                      NewFile access) {
  return Write(FileBehind(name), bytes, access, OpenBeside);
}

std::optional<RuntimeError> WriteLockedFile(const std::string& name, std::string_view bytes,
                                            NewFile access) {
  return Write(FileBehind(name), bytes, access, OpenOwnBeside);
}

}  // namespace morvane
