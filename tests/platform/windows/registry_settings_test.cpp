#include "platform/windows/registry_settings.h"

#include <windows.h>

#include "platform/settings_contract.h"
#include "platform/system_settings.h"
#include "platform/windows/wide.h"

namespace morvane::test {
namespace {

/// A key that nothing else uses; it goes with the desk.
class RegistryDesk {
 public:
  RegistryDesk() { Clear(); }
  ~RegistryDesk() { Clear(); }
  RegistryDesk(const RegistryDesk&) = delete;
  RegistryDesk& operator=(const RegistryDesk&) = delete;
  [[nodiscard]] RegistrySettings Open() const { return RegistrySettings(key_); }
  [[nodiscard]] std::wstring Section(const char* name) const { return Wide(key_ + "\\" + name); }

 private:
  void Clear() const { RegDeleteTreeW(HKEY_CURRENT_USER, Wide(key_).c_str()); }
  const std::string key_ = "Software\\morvane.test." + std::to_string(GetCurrentProcessId());
};

INSTANTIATE_TYPED_TEST_SUITE_P(RegistrySettings, SettingsContract, RegistryDesk);

bool IsThere(const std::wstring& key) {
  HKEY opened = nullptr;
  if (RegOpenKeyExW(HKEY_CURRENT_USER, key.c_str(), 0, KEY_READ, &opened) != ERROR_SUCCESS) {
    return false;
  }
  RegCloseKey(opened);
  return true;
}

TEST(RegistrySettings, TheUsersOwnKeyIsNamedAsTheSystemsToolsNameIt) {
  EXPECT_EQ(OwnSettingsKey(), "HKEY_CURRENT_USER\\Software\\morvane.exe");
}

TEST(RegistrySettings, ReadingMakesNoKey) {
  const RegistryDesk desk;
  EXPECT_EQ(desk.Open().Get(kText), "the default");
  EXPECT_FALSE(IsThere(desk.Section("Setup")));
}

TEST(RegistrySettings, ATextStandsThereAsOtherProgramsWriteIt) {
  const RegistryDesk desk;
  EXPECT_TRUE(desk.Open().Set(kText, "Zo\xC3\xAB"));
  std::array<wchar_t, 10> text{};
  DWORD size = sizeof text;
  DWORD kind = REG_NONE;
  EXPECT_EQ(RegGetValueW(HKEY_CURRENT_USER, desk.Section("Setup").c_str(), L"Text", RRF_RT_ANY,
                         &kind, text.data(), &size),
            ERROR_SUCCESS);
  EXPECT_EQ(kind, static_cast<DWORD>(REG_SZ));
  EXPECT_EQ(std::wstring(text.data()), L"Zo\u00EB");
  EXPECT_EQ(size, 8U) << "with its NUL";
}

TEST(RegistrySettings, AnotherProgramsTextIsReadWithoutANulAtItsEndToo) {
  const RegistryDesk desk;
  EXPECT_EQ(
      RegSetKeyValueW(HKEY_CURRENT_USER, desk.Section("Setup").c_str(), L"Text", REG_SZ, L"99", 4),
      ERROR_SUCCESS);
  EXPECT_EQ(desk.Open().Get(kText), "99");
}

TEST(RegistrySettings, NamesCompareWithoutRegardToCase) {
  const RegistryDesk desk;
  EXPECT_TRUE(desk.Open().Set(kText, "1"));
  EXPECT_EQ(desk.Open().Get({"SETUP", "text", ""}), "1");
}

TEST(RegistrySettings, WhereNoKeyCanBeMadeNothingIsKept) {
  // A key's name has 255 characters at most.
  RegistrySettings store("Software\\" + std::string(300, 'n'));
  EXPECT_FALSE(store.Set(kText, "1"));
  EXPECT_EQ(store.Get(kText), "the default");
}

}  // namespace
}  // namespace morvane::test
