#include "platform/windows/full_path.h"

#include <windows.h>
// Behind what it is made of.
#include <pathcch.h>

#include <algorithm>

#include "platform/files.h"
#include "platform/windows/wide.h"

namespace morvane {

std::wstring FullPath(const std::wstring& name) {
  std::wstring whole(GetFullPathNameW(name.c_str(), 0, nullptr, nullptr), L'\0');
  const auto room = static_cast<DWORD>(whole.size());
  const DWORD size = GetFullPathNameW(name.c_str(), room, whole.data(), nullptr);
  if (size == 0 || size > room) return name;
  whole.resize(size);
  return whole;
}

bool IsDevice(std::wstring_view fullPath) { return fullPath.starts_with(L"\\\\.\\"); }

std::string RootOf(std::string_view path) {
  std::wstring name = Wide(path);
  std::replace(name.begin(), name.end(), L'/', L'\\');
  const wchar_t* behind = nullptr;
  if (PathCchSkipRoot(name.c_str(), &behind) != S_OK) return "";
  return Utf8(name.substr(0, static_cast<std::size_t>(behind - name.c_str())));
}

bool MeansAnother(std::string_view path) {
  const std::string_view name = path.substr(RootOf(path).size());
  if (name.find(':') != std::string_view::npos) return true;
  const std::string title = FileTitle(name);
  if (title == "." || title == "..") return false;
  return title.ends_with('.') || title.ends_with(' ');
}

}  // namespace morvane
