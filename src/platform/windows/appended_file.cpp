#include "platform/windows/appended_file.h"

#include "platform/windows/system_error.h"

namespace morvane {
namespace {

// Without the right to write elsewhere, the system itself puts bytes at the end.
constexpr DWORD kRights = FILE_READ_DATA | FILE_READ_ATTRIBUTES | FILE_APPEND_DATA | SYNCHRONIZE;

}  // namespace

AppendedFile::AppendedFile(const std::string& path, NewFile access)
    : file_(OpenShared(path, kRights, OPEN_ALWAYS, access)) {
  if (!file_) error_ = RuntimeError::Last();
}

char AppendedFile::LastByte() const {
  LARGE_INTEGER size{};
  if (!GetFileSizeEx(file_.get(), &size) || size.QuadPart == 0) return '\n';
  LARGE_INTEGER at{};
  at.QuadPart = size.QuadPart - 1;
  char last = '\n';
  DWORD got = 0;
  const bool read = SetFilePointerEx(file_.get(), at, nullptr, FILE_BEGIN) != 0 &&
                    ::ReadFile(file_.get(), &last, 1, &got, nullptr) != 0 && got == 1;
  return read ? last : '\n';
}

std::optional<RuntimeError> AppendedFile::Add(std::string_view bytes) const {
  while (!bytes.empty()) {
    DWORD written = 0;
    const auto size = static_cast<DWORD>(bytes.size());
    if (!::WriteFile(file_.get(), bytes.data(), size, &written, nullptr)) return LastSystemError();
    if (written == 0) return RuntimeError::OfNumber(ENOSPC);
    bytes.remove_prefix(written);
  }
  return std::nullopt;
}

}  // namespace morvane
