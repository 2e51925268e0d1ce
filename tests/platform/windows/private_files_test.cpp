// Who may read what we write, by the access lists that the system gives back.

#include <windows.h>
// The others need its types.
#include <aclapi.h>
#include <sddl.h>

#include <filesystem>
#include <set>

#include "platform/file_lock.h"
#include "platform/files.h"
#include "platform/windows/access_list.h"
#include "platform/windows/wide.h"
#include "support/fakes.h"

namespace morvane::test {
namespace {

using ::testing::IsSubsetOf;

std::string TextOf(PSID who) {
  wchar_t* text = nullptr;
  if (!ConvertSidToStringSidW(who, &text)) return "?";
  std::string name = Utf8(text);
  LocalFree(text);
  return name;
}

/// Whom the list of what stands at `path` lets in, by their numbers; "owner" is who owns it.
std::set<std::string> LetIn(const std::string& path) {
  PSID owner = nullptr;
  ACL* list = nullptr;
  void* description = nullptr;
  if (GetNamedSecurityInfoW(PathOfUtf8(path).c_str(), SE_FILE_OBJECT,
                            OWNER_SECURITY_INFORMATION | DACL_SECURITY_INFORMATION, &owner, nullptr,
                            &list, nullptr, &description) != ERROR_SUCCESS ||
      list == nullptr) {
    return {"everybody"};
  }
  std::set<std::string> names;
  for (DWORD i = 0; i < list->AceCount; ++i) {
    void* entry = nullptr;
    GetAce(list, i, &entry);
    auto* const allowed = static_cast<ACCESS_ALLOWED_ACE*>(entry);
    if (allowed->Header.AceType != ACCESS_ALLOWED_ACE_TYPE || allowed->Mask == 0) continue;
    names.insert(EqualSid(&allowed->SidStart, owner) ? "owner" : TextOf(&allowed->SidStart));
  }
  LocalFree(description);
  return names;
}

constexpr const char* kEverybody = "S-1-1-0";
constexpr const char* kSystem = "S-1-5-18";
constexpr const char* kAdministrators = "S-1-5-32-544";

void OpenToEverybody(const std::string& path) {
  void* description = nullptr;
  ASSERT_TRUE(ConvertStringSecurityDescriptorToSecurityDescriptorW(
      L"D:P(A;;FA;;;WD)", SDDL_REVISION_1, &description, nullptr));
  EXPECT_TRUE(SetFileSecurityW(PathOfUtf8(path).c_str(), DACL_SECURITY_INFORMATION, description));
  LocalFree(description);
  ASSERT_TRUE(LetIn(path).contains(kEverybody));
}

/// Makes each kind of private thing in `folder`.
void MakeAll(const TempFolder& folder) {
  EXPECT_FALSE(MakePrivateFolder(folder / "data"));
  EXPECT_FALSE(AppendLines(folder / "data/log", "x\r\n", NewFile::kPrivate));
  EXPECT_FALSE(WriteFile(folder / "data/file", "x", NewFile::kPrivate));
  EXPECT_FALSE(WriteLockedFile(folder / "data/history", "x", NewFile::kPrivate));
  EXPECT_TRUE(FileLock::Try(folder / "data/lock"));
}

constexpr std::array kAll{"data", "data/log", "data/file", "data/history", "data/lock"};

TEST(PrivateFiles, AreTheirUsersAlone) {
  TempFolder folder;
  MakeAll(folder);
  const std::set<std::string> most{"owner", kSystem, kAdministrators};
  for (const char* name : kAll) {
    EXPECT_THAT(LetIn(folder / name), IsSubsetOf(most)) << name;
    EXPECT_TRUE(LetIn(folder / name).contains("owner")) << name;
  }
}

TEST(PrivateFiles, LoseTheRightsOfOthersWhenTheyAreUsedAgain) {
  TempFolder folder;
  MakeAll(folder);
  for (const char* name : kAll) OpenToEverybody(folder / name);
  MakeAll(folder);
  for (const char* name : kAll) EXPECT_FALSE(LetIn(folder / name).contains(kEverybody)) << name;
}

TEST(PrivateFiles, AnOpenFileThatIsReplacedStaysOpen) {
  TempFolder folder;
  WriteContent(folder / "set.pbn", "old");
  OpenToEverybody(folder / "set.pbn");
  WriteContent(folder / "set.pbn", "new");
  EXPECT_TRUE(LetIn(folder / "set.pbn").contains(kEverybody));
  EXPECT_EQ(Content(folder / "set.pbn"), "new");
}

TEST(PrivateFiles, ADriveStaysWhoseItIs) {
  const std::string drive = std::filesystem::current_path().root_path().string();
  const auto before = LetIn(drive);
  MakePrivate(drive);
  EXPECT_FALSE(MakePrivateFolder(drive));
  EXPECT_EQ(LetIn(drive), before);
}

TEST(PrivateFiles, AFileInThePlaceOfTheFolderIsAnError) {
  TempFolder folder;
  WriteContent(folder / "file", "");
  EXPECT_TRUE(MakePrivateFolder(folder / "file"));
  EXPECT_TRUE(MakePrivateFolder(folder / "file/data"));
}

}  // namespace
}  // namespace morvane::test
