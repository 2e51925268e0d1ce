#include "platform/files.h"

#include <array>
#include <cstdio>
#include <memory>

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

std::optional<RuntimeError> WriteAndClose(File file, std::string_view bytes) {
  if (!file) return RuntimeError::Last();
  if (std::fwrite(bytes.data(), 1, bytes.size(), file.get()) != bytes.size() ||
      std::fflush(file.get()) != 0) {
    return RuntimeError::Last();
  }
  // A network drive may refuse the bytes only now.
  if (std::fclose(file.release()) != 0) return RuntimeError::Last();
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

std::string AbsolutePath(std::string_view path) {
  std::error_code failure;
  const auto absolute = std::filesystem::absolute(PathOfUtf8(path), failure);
  if (failure) return std::string(path);
  const std::u8string text = absolute.lexically_normal().u8string();
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

std::optional<RuntimeError> ReadFile(const std::string& path, std::string& bytes) {
  const File file = OpenFile(path, "rb");
  if (!file) return RuntimeError::Last();
  bytes.clear();
  std::array<char, 65536> block{};
  while (const std::size_t got = std::fread(block.data(), 1, block.size(), file.get())) {
    bytes.append(block.data(), got);
  }
  if (std::ferror(file.get()) != 0) return RuntimeError::Last();
  return std::nullopt;
}

std::optional<RuntimeError> WriteFile(const std::string& path, std::string_view bytes) {
  std::error_code failure;
  const auto status = std::filesystem::symlink_status(PathOfUtf8(path), failure);
  const bool plain = !std::filesystem::exists(status) || std::filesystem::is_regular_file(status);
  if (!plain) return WriteAndClose(OpenFile(path, "wb"), bytes);

  const std::string beside = path + ".new";
  if (auto error = WriteAndClose(OpenFile(beside, "wb"), bytes)) {
    std::filesystem::remove(PathOfUtf8(beside), failure);
    return error;
  }
  std::filesystem::rename(PathOfUtf8(beside), PathOfUtf8(path), failure);
  if (!failure) return std::nullopt;
  const RuntimeError error = RuntimeError::OfNumber(failure.value());
  std::filesystem::remove(PathOfUtf8(beside), failure);
  return error;
}

std::optional<RuntimeError> AppendToFile(const std::string& path, std::string_view bytes) {
  return WriteAndClose(OpenFile(path, "ab"), bytes);
}

}  // namespace morvane
