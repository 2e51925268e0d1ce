#include "platform/windows/registry_settings.h"

#include <windows.h>

#include <memory>
#include <optional>
#include <vector>

#include "platform/windows/wide.h"

namespace morvane {
namespace {

struct KeyCloser {
  using pointer = HKEY;
  void operator()(HKEY key) const { RegCloseKey(key); }
};
using OpenedKey = std::unique_ptr<HKEY, KeyCloser>;

/// What stands under a name: its kind, and its bytes.
struct Value {
  DWORD Kind = REG_NONE;
  std::vector<BYTE> Bytes;
};

OpenedKey OpenToRead(const std::wstring& section) {
  HKEY opened = nullptr;
  RegOpenKeyExW(HKEY_CURRENT_USER, section.c_str(), 0, KEY_QUERY_VALUE, &opened);
  return OpenedKey(opened);
}

OpenedKey OpenToWrite(const std::wstring& section) {
  HKEY opened = nullptr;
  RegCreateKeyExW(HKEY_CURRENT_USER, section.c_str(), 0, nullptr, 0, KEY_SET_VALUE, nullptr,
                  &opened, nullptr);
  return OpenedKey(opened);
}

/// Between the two calls another program may have written a longer one.
std::optional<Value> Read(HKEY section, const std::wstring& name) {
  Value value;
  DWORD size = 0;
  LSTATUS status = ERROR_MORE_DATA;
  while (status == ERROR_MORE_DATA) {
    value.Bytes.resize(size);
    status =
        RegQueryValueExW(section, name.c_str(), nullptr, &value.Kind, value.Bytes.data(), &size);
    if (status == ERROR_SUCCESS && size > value.Bytes.size()) status = ERROR_MORE_DATA;
  }
  if (status != ERROR_SUCCESS) return std::nullopt;
  value.Bytes.resize(size);
  return value;
}

std::string TextOf(const Value& value) {
  if (value.Kind == REG_BINARY) return {value.Bytes.begin(), value.Bytes.end()};
  if (value.Kind != REG_SZ && value.Kind != REG_EXPAND_SZ) return {};
  std::wstring text(reinterpret_cast<const wchar_t*>(value.Bytes.data()),
                    value.Bytes.size() / sizeof(wchar_t));
  // Whoever wrote it may have left out the NUL at its end.
  while (!text.empty() && text.back() == L'\0') text.pop_back();
  return Utf8(text);
}

bool Write(HKEY section, const std::wstring& name, DWORD kind, const void* bytes,
           std::size_t size) {
  return RegSetValueExW(section, name.c_str(), 0, kind, static_cast<const BYTE*>(bytes),
                        static_cast<DWORD>(size)) == ERROR_SUCCESS;
}

}  // namespace

std::wstring RegistrySettings::SectionOf(const SettingKey& key) const {
  return Wide(key_ + "\\" + std::string(key.Section));
}

std::string RegistrySettings::Get(const SettingKey& key) const {
  const OpenedKey section = OpenToRead(SectionOf(key));
  if (!section) return std::string(key.Default);
  const auto value = Read(section.get(), Wide(key.Name));
  return value ? TextOf(*value) : std::string(key.Default);
}

bool RegistrySettings::Set(const SettingKey& key, std::string_view value) {
  const OpenedKey section = OpenToWrite(SectionOf(key));
  if (!section) return false;
  const std::wstring name = Wide(key.Name);
  const std::wstring text = Wide(value);
  const bool isText = text.find(L'\0') == std::wstring::npos && Utf8(text) == value;
  if (!isText) return Write(section.get(), name, REG_BINARY, value.data(), value.size());
  return Write(section.get(), name, REG_SZ, text.c_str(), (text.size() + 1) * sizeof(wchar_t));
}

}  // namespace morvane
