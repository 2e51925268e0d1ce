#include <cerrno>

#include "platform/files.h"

#ifdef _WIN32
#include "platform/windows/appended_file.h"
#else
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/private_file.h"
#endif

namespace morvane {
namespace {

/// What ends a last line whose last byte is `last`: a crash may have left a CR without its LF.
std::string_view MissingLineEnd(char last) {
  if (last == '\n') return "";
  return last == '\r' ? "\n" : "\r\n";
}

/// A pipe or a device is told before it is opened, which may wait or move something.
std::optional<RuntimeError> RefuseUnlessPlain(const std::string& path) {
  std::error_code failure;
  const auto status = std::filesystem::status(PathOfUtf8(path), failure);
  if (std::filesystem::is_other(status)) return RuntimeError::OfNumber(ENOTSUP);
  return std::nullopt;
}

#ifdef _WIN32

std::optional<RuntimeError> Append(const std::string& path, std::string_view lines,
                                   NewFile access) {
  const AppendedFile file(path, access);
  if (file.Error()) return file.Error();
  return file.Add(std::string(MissingLineEnd(file.LastByte())).append(lines));
}

#else

class Descriptor {
 public:
  explicit Descriptor(int file) : file_(file) {}
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  ~Descriptor() {
    if (file_ >= 0) close(file_);
  }
  [[nodiscard]] int Get() const { return file_; }

 private:
  int file_;
};

/// The line end that the file still lacks.
std::string_view LineEndFor(int file, off_t size) {
  char last = '\n';
  if (size > 0 && pread(file, &last, 1, size - 1) != 1) last = '\n';
  return MissingLineEnd(last);
}

/// One write, as far as the system takes all of it: a disk that is full takes a part, and says why
/// when it is asked again.
std::optional<RuntimeError> WriteAll(int file, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = write(file, bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) return RuntimeError::Last();
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return std::nullopt;
}

std::optional<RuntimeError> Append(const std::string& path, std::string_view lines,
                                   NewFile access) {
  constexpr int kFlags = O_RDWR | O_CREAT | O_APPEND | O_NONBLOCK | O_NOCTTY;
  const Descriptor file(OpenWithRights(path, kFlags, access));
  struct stat status {};
  if (file.Get() < 0 || fstat(file.Get(), &status) != 0) return RuntimeError::Last();
  if (!S_ISREG(status.st_mode)) return RuntimeError::OfNumber(ENOTSUP);
  std::string bytes(LineEndFor(file.Get(), status.st_size));
  bytes.append(lines);
  return WriteAll(file.Get(), bytes);
}

#endif

}  // namespace

std::optional<RuntimeError> AppendLines(const std::string& path, std::string_view lines,
                                        NewFile access) {
  if (auto error = RefuseUnlessPlain(path)) return error;
  return Append(path, lines, access);
}

}  // namespace morvane
