#include "platform/paths.h"

#include <windows.h>

#include <filesystem>

#include "platform/files.h"
#include "platform/utf8_of_path.h"
#include "platform/windows/full_path.h"
#include "platform/windows/handle.h"
#include "platform/windows/wide.h"

namespace morvane {
namespace {

constexpr std::wstring_view kLongShare = L"\\\\?\\UNC\\";
constexpr std::wstring_view kLong = L"\\\\?\\";

/// As people write it.
std::wstring Short(const std::wstring& name) {
  if (name.starts_with(kLongShare)) return L"\\\\" + name.substr(kLongShare.size());
  const bool hasDrive = name.starts_with(kLong) && name.substr(kLong.size()).find(L':') == 1;
  return hasDrive ? name.substr(kLong.size()) : name;
}

/// Empty where nothing is there.
std::wstring NameOfWhatIsAt(const std::wstring& path) {
  const OpenedHandle opened =
      TakeHandle(CreateFileW(path.c_str(), 0, kSharedWithAll, nullptr, OPEN_EXISTING,
                             FILE_FLAG_BACKUP_SEMANTICS, nullptr));
  if (!opened) return {};
  std::wstring name(GetFinalPathNameByHandleW(opened.get(), nullptr, 0, 0), L'\0');
  const auto room = static_cast<DWORD>(name.size());
  const DWORD size = GetFinalPathNameByHandleW(opened.get(), name.data(), room, 0);
  name.resize(size > room ? 0 : size);
  return Short(name);
}

}  // namespace

bool IsAbsolutePath(std::string_view path) {
  constexpr std::size_t kDriveAlone = 2;
  return RootOf(path).size() > kDriveAlone;
}

std::string AbsolutePath(std::string_view path) {
  if (path.empty()) return "";
  const std::wstring whole = FullPath(Wide(path));
  if (IsDevice(whole)) return Utf8(whole);
  // The last name stays as it is: who opens it says that the system would make another of it.
  const std::string folder = FolderOf(path);
  return JoinPath(Utf8(FullPath(Wide(folder.empty() ? "." : folder))), FileTitle(path));
}

std::string TruePath(const std::string& path) {
  std::filesystem::path name = PathOfUtf8(AbsolutePath(path));
  if (IsDevice(name.native()) || MeansAnother(path)) return path;
  std::filesystem::path missing;
  for (;;) {
    const std::filesystem::path found = NameOfWhatIsAt(name.native());
    if (!found.empty()) return Utf8OfPath(missing.empty() ? found : found / missing);
    const std::filesystem::path folder = name.parent_path();
    if (folder == name) return path;
    missing = missing.empty() ? name.filename() : name.filename() / missing;
    name = folder;
  }
}

}  // namespace morvane
