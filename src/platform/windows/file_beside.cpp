#include "platform/windows/file_beside.h"

#include <io.h>

#include "platform/windows/opening.h"
#include "platform/windows/replacing.h"
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

bool IsNameOf(const std::string& path, HANDLE file) {
  const OpenedHandle named =
      TakeHandle(CreateFileW(PathOfUtf8(path).c_str(), FILE_READ_ATTRIBUTES, kSharedWithAll,
                             nullptr, OPEN_EXISTING, FILE_FLAG_OPEN_REPARSE_POINT, nullptr));
  return named && Identity(named.get()).Is(Identity(file));
}

void Remove(HANDLE file) {
  FILE_DISPOSITION_INFO going{TRUE};
  SetFileInformationByHandle(file, FileDispositionInfo, &going, sizeof going);
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

bool LeadsTo(const std::string& path, std::FILE& file) { return IsNameOf(path, HandleOf(file)); }

void ClearIfDead(const std::string& path) {
  const OpenedHandle file = OpenShared(path, GENERIC_READ | DELETE, OPEN_EXISTING);
  // Its writer may have given it its last name before we had the lock.
  if (file && TakeLock(file.get()) && IsNameOf(path, file.get())) Remove(file.get());
}

bool Hold(FileBeside& beside) {
  // Of its own, since the file is closed before it gets its last name.
  OpenedHandle file = OpenShared(beside.Name, GENERIC_READ | GENERIC_WRITE | DELETE, OPEN_EXISTING);
  if (file) beside.Alive = std::shared_ptr<void>(file.release(), CloseHandle);
  return beside.Alive != nullptr;
}

bool SayAlive(FileBeside& beside) {
  if (!Hold(beside)) return false;
  HANDLE const file = beside.Alive.get();
  FILE_STANDARD_INFO facts{};
  const bool free = TakeLock(file) || !IsHeldByAnother();
  const bool known =
      GetFileInformationByHandleEx(file, FileStandardInfo, &facts, sizeof facts) != 0;
  return free && !(known && facts.DeletePending);
}

std::optional<RuntimeError> Rename(const FileBeside& beside, const std::string& to) {
  return PutInPlace(beside.Alive.get(), PathOfUtf8(AbsolutePath(to)));
}

void Discard(const FileBeside& beside) { Remove(beside.Alive.get()); }

}  // namespace morvane
