#include "platform/files.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <memory>
#include <utility>

#ifdef _WIN32
#include <io.h>
#else
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace morvane {
namespace {

struct Closer {
  void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, Closer>;

File OpenFile(const std::string& path, const char* mode) {
#ifdef _WIN32
  const std::wstring wideMode(mode, mode + std::char_traits<char>::length(mode));
  return File(_wfopen(PathOfUtf8(path).c_str(), wideMode.c_str()));
#else
  return File(std::fopen(path.c_str(), mode));
#endif
}

/// How the system opens a file to write: over what is there, or only where nothing is.
enum class Opening { kOver, kNew };

#ifdef _WIN32

File OpenToWrite(const std::string& path, Opening opening, NewFile /*access*/) {
  return OpenFile(path, opening == Opening::kNew ? "wbx" : "wb");
}

bool Sync(std::FILE* file) { return _commit(_fileno(file)) == 0; }

void KeepOwner(std::FILE* /*file*/, const std::string& /*old*/) {}

bool MayWrite(const std::string& path) {
  constexpr int kToWrite = 2;
  return _waccess(PathOfUtf8(path).c_str(), kToWrite) == 0;
}

#else

File OpenToWrite(const std::string& path, Opening opening, NewFile access) {
  // A pipe that nobody reads is an error, and not waited for.
  const int flags =
      O_WRONLY | O_CREAT | O_CLOEXEC | O_NONBLOCK | (opening == Opening::kNew ? O_EXCL : O_TRUNC);
  const int file = open(path.c_str(), flags, access == NewFile::kPrivate ? 0600 : 0666);
  if (file < 0) return nullptr;
  fcntl(file, F_SETFL, 0);
  return File(fdopen(file, "wb"));
}

bool Sync(std::FILE* file) { return fsync(fileno(file)) == 0; }

/// Gives the file to the owner and the group of `old`, as far as the system lets us.
void KeepOwner(std::FILE* file, const std::string& old) {
  struct stat status {};
  if (stat(old.c_str(), &status) != 0) return;
  if (fchown(fileno(file), status.st_uid, status.st_gid) != 0) {
    [[maybe_unused]] const int group = fchown(fileno(file), static_cast<uid_t>(-1), status.st_gid);
  }
}

bool MayWrite(const std::string& path) {
  return faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) == 0;
}

#endif

/// A file in the folder of `path` under a name that nothing had, which goes to `name`; what stands
/// there is someone else's. The name is short: the file's own may be as long as names can be.
File OpenBeside(const std::string& path, NewFile access, std::string& name) {
  constexpr int kMostNames = 1000;
  File file;
  int number = 1;
  do {
    name = FolderOf(path) + "morvane.new" + std::to_string(number);
    file = OpenToWrite(name, Opening::kNew, access);
  } while (!file && errno == EEXIST && ++number <= kMostNames);
  return file;
}

/// The same under the one name that only the holder of the file's lock uses.
File OpenOwnBeside(const std::string& path, NewFile access, std::string& name) {
  name = path + ".new";
  return OpenToWrite(name, Opening::kOver, access);
}

using BesideOpener = File (*)(const std::string& path, NewFile access, std::string& name);

/// When written bytes count as written: in the system's hands, or where a power cut leaves them.
enum class Lasting { kUsual, kSafe };

std::optional<RuntimeError> WriteAndClose(File file, std::string_view bytes,
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

  std::string beside;
  File file = openBeside(path, replaces ? NewFile::kPrivate : access, beside);
  if (!file) return RuntimeError::Last();
  if (replaces) {
    KeepOwner(file.get(), path);
    // A file system without permissions may refuse them; the bytes matter more.
    std::filesystem::permissions(PathOfUtf8(beside),
                                 old.permissions() & std::filesystem::perms::all, failure);
  }
  auto error = WriteAndClose(std::move(file), bytes, Lasting::kSafe);
  if (!error) {
    std::filesystem::rename(PathOfUtf8(beside), PathOfUtf8(path), failure);
    if (failure) error = RuntimeError::Of(failure);
  }
  if (error) std::filesystem::remove(PathOfUtf8(beside), failure);
  return error;
}

}  // namespace

std::filesystem::path PathOfUtf8(std::string_view path) {
  return std::filesystem::path(std::u8string(path.begin(), path.end()));
}

std::string JoinPath(std::string_view folder, std::string_view name) {
  std::string path(folder);
  if (!path.empty() && kPathSeparators.find(path.back()) == std::string_view::npos) {
    path += static_cast<char>(std::filesystem::path::preferred_separator);
  }
  return path.append(name);
}

std::string AbsolutePath(std::string_view path) {
  std::error_code failure;
  const auto absolute = std::filesystem::absolute(PathOfUtf8(path), failure);
  if (failure) return std::string(path);
  const std::u8string text = absolute.u8string();
  return {text.begin(), text.end()};
}

std::string FileTitle(std::string_view path) {
  const std::size_t at = path.find_last_of(kPathSeparators);
  return std::string(at == std::string_view::npos ? path : path.substr(at + 1));
}

std::string FolderOf(std::string_view path) {
  const std::size_t at = path.find_last_of(kPathSeparators);
  return std::string(at == std::string_view::npos ? std::string_view() : path.substr(0, at + 1));
}

std::string FileBehind(const std::string& path) {
  std::error_code failure;
  const auto real = std::filesystem::canonical(PathOfUtf8(path), failure);
  if (failure || !std::filesystem::is_regular_file(real, failure)) return path;
  const std::u8string text = real.u8string();
  return {text.begin(), text.end()};
}

std::optional<RuntimeError> ReadFile(const std::string& path, std::string& bytes) {
  bytes.clear();
  return ReadBlocks(path, [&bytes](std::string_view block) { bytes.append(block); });
}

std::optional<RuntimeError> ReadBlocks(const std::string& path,
                                       const std::function<void(std::string_view)>& take) {
  std::error_code failure;
  const auto status = std::filesystem::status(PathOfUtf8(path), failure);
  if (std::filesystem::is_other(status)) return RuntimeError::OfNumber(ENOTSUP);
  const File file = OpenFile(path, "rb");
  if (!file) return RuntimeError::Last();
  std::array<char, 65536> block{};
  while (const std::size_t got = std::fread(block.data(), 1, block.size(), file.get())) {
    take({block.data(), got});
  }
  if (std::ferror(file.get()) != 0) return RuntimeError::Last();
  return std::nullopt;
}

std::optional<RuntimeError> WriteFile(const std::string& name, std::string_view bytes,
                                      NewFile access) {
  return Write(FileBehind(name), bytes, access, OpenBeside);
}

std::optional<RuntimeError> WriteLockedFile(const std::string& name, std::string_view bytes,
                                            NewFile access) {
  return Write(FileBehind(name), bytes, access, OpenOwnBeside);
}

std::optional<RuntimeError> AppendToFile(const std::string& path, std::string_view bytes) {
  return WriteAndClose(OpenFile(path, "ab"), bytes);
}

}  // namespace morvane
