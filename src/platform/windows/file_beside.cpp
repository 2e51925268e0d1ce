#include "platform/windows/file_beside.h"

#include <io.h>

#include "platform/windows/opening.h"
#include "platform/windows/system_error.h"

namespace morvane {
namespace {

/// The file's number on its drive.
struct Identity {
  explicit Identity(HANDLE file) : Known(GetFileInformationByHandle(file, &Facts) != 0) {}
  [[nodiscard]] bool Is(const Identity& other) const {
    return Known && other.Known && Facts.dwVolumeSerialNumber == other.Facts.dwVolumeSerialNumber &&
           Facts.nFileIndexHigh == other.Facts.nFileIndexHigh &&
           Facts.nFileIndexLow == other.Facts.nFileIndexLow;
  }

  BY_HANDLE_FILE_INFORMATION Facts{};
  bool Known;
};

HANDLE HandleOf(std::FILE& file) {
  return reinterpret_cast<HANDLE>(_get_osfhandle(_fileno(&file)));
}

}  // namespace

OpenedFile OpenToWrite(const std::string& path, Opening opening, NewFile access) {
  const bool isNew = opening == Opening::kNew;
  OpenedHandle file = OpenShared(path, GENERIC_WRITE | FILE_READ_ATTRIBUTES,
                                 isNew ? CREATE_NEW : OPEN_ALWAYS, access);
  // Nothing of what is there stays; CREATE_ALWAYS would refuse a hidden file.
  if (file && !isNew && !SetEndOfFile(file.get())) {
    KeepLastError();
    return nullptr;
  }
  return StreamOf(std::move(file), "wb");
}

void CutOff(std::FILE& file, std::uint64_t size) {
  _chsize_s(_fileno(&file), static_cast<__int64>(size));
}

bool LeadsTo(const std::string& path, std::FILE& file) {
  constexpr DWORD kAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
  const OpenedHandle named =
      TakeHandle(CreateFileW(PathOfUtf8(path).c_str(), FILE_READ_ATTRIBUTES, kAll, nullptr,
                             OPEN_EXISTING, FILE_FLAG_OPEN_REPARSE_POINT, nullptr));
  return named && Identity(named.get()).Is(Identity(HandleOf(file)));
}

void ClearIfDead(const std::string& path) {
  const OpenedHandle file = OpenShared(path, GENERIC_READ | DELETE, OPEN_EXISTING);
  if (!file || !TakeLock(file.get())) return;
  FILE_DISPOSITION_INFO going{TRUE};
  SetFileInformationByHandle(file.get(), FileDispositionInfo, &going, sizeof going);
}

bool SayAlive(FileBeside& beside) {
  // Of its own, since the file is closed before it gets its last name.
  OpenedHandle file = OpenShared(beside.Name, GENERIC_READ, OPEN_EXISTING);
  if (!file) return false;
  FILE_STANDARD_INFO facts{};
  const bool free = TakeLock(file.get()) || !IsHeldByAnother();
  const bool known =
      GetFileInformationByHandleEx(file.get(), FileStandardInfo, &facts, sizeof facts) != 0;
  beside.Alive = std::shared_ptr<void>(file.release(), CloseHandle);
  return free && !(known && facts.DeletePending);
}

}  // namespace morvane
