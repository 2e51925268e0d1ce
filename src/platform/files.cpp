#include "platform/files.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <new>

#include "platform/file_beside.h"
#include "platform/paths.h"

#ifdef _WIN32
#include "platform/windows/opening.h"
#else
#include <fcntl.h>
#endif

namespace morvane {
namespace {

OpenedFile OpenToRead(const std::string& path) {
#ifdef _WIN32
  return StreamOf(OpenShared(path, GENERIC_READ, OPEN_EXISTING), "rb");
#else
  // What has become a pipe meanwhile is not waited for.
  const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
  return OpenedFile(file < 0 ? nullptr : fdopen(file, "rb"));
#endif
}

std::optional<RuntimeError> TakeBlocks(std::FILE* file,
                                       const std::function<void(std::string_view)>& take,
                                       std::uint64_t most) {
  std::array<char, 65536> block{};
  std::uint64_t size = 0;
  while (const std::size_t got = std::fread(block.data(), 1, block.size(), file)) {
    size += got;
    if (size > most) return RuntimeError::OfNumber(EFBIG);
    take({block.data(), got});
  }
  if (std::ferror(file) != 0) return RuntimeError::Last();
  return std::nullopt;
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
  std::string real = TruePath(path);
  return std::filesystem::is_regular_file(PathOfUtf8(real), failure) ? real : path;
}

std::optional<RuntimeError> ReadFile(const std::string& path, std::string& bytes,
                                     std::uint64_t most) {
  bytes.clear();
  return ReadBlocks(
      path, [&bytes](std::string_view block) { bytes.append(block); }, most);
}

std::optional<RuntimeError> ReadBlocks(const std::string& path,
                                       const std::function<void(std::string_view)>& take,
                                       std::uint64_t most) {
  std::error_code failure;
  const auto status = std::filesystem::status(PathOfUtf8(path), failure);
  if (std::filesystem::is_other(status)) return RuntimeError::OfNumber(ENOTSUP);
  // What is too large is told before it has been read. Some files say 0 and have more.
  const std::uint64_t size = std::filesystem::is_regular_file(status)
                                 ? std::filesystem::file_size(PathOfUtf8(path), failure)
                                 : 0;
  if (!failure && size > most) return RuntimeError::OfNumber(EFBIG);
  const OpenedFile file = OpenToRead(path);
  if (!file) return RuntimeError::Last();
  try {
    return TakeBlocks(file.get(), take, most);
  } catch (const std::bad_alloc&) {
    return RuntimeError::OfNumber(ENOMEM);
  }
}

}  // namespace morvane
