// Who may read what we write, by the access lists that the system gives back.

#include <windows.h>
// The others need its types.
#include <aclapi.h>
#include <sddl.h>

#include <algorithm>
#include <array>
#include <cstddef>
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

/// The program's user, as long as this lives.
class TokenUser {
 public:
  TokenUser() {
    HANDLE token = nullptr;
    EXPECT_TRUE(OpenProcessToken(GetCurrentProcess(), TOKEN_QUERY, &token));
    DWORD size = 0;
    EXPECT_TRUE(GetTokenInformation(token, ::TokenUser, bytes_.data(),
                                    static_cast<DWORD>(bytes_.size()), &size));
    CloseHandle(token);
  }
  [[nodiscard]] PSID Get() { return reinterpret_cast<TOKEN_USER*>(bytes_.data())->User.Sid; }

 private:
  alignas(TOKEN_USER) std::array<std::byte, 200> bytes_{};
};

// Not every system that runs the tests keeps a list as it is given.
TEST(PrivateFiles, TheirListIsTheUsersTheSystemsAndTheAdministratorsWithWhatIsMadeWithin) {
  OwnAccess access;
  ASSERT_NE(access.Get(), nullptr);
  wchar_t* text = nullptr;
  ASSERT_TRUE(ConvertSecurityDescriptorToStringSecurityDescriptorW(
      access.Get()->lpSecurityDescriptor, SDDL_REVISION_1, DACL_SECURITY_INFORMATION, &text,
      nullptr));
  const LocalPointer kept(text);
  const std::string words = Utf8(text);
  EXPECT_THAT(words, ::testing::StartsWith("D:P(A;OICI;FA;;;"));
  EXPECT_THAT(words, ::testing::EndsWith(")(A;OICI;FA;;;SY)(A;OICI;FA;;;BA)"));
  EXPECT_EQ(std::count(words.begin(), words.end(), '('), 3) << words;
  BOOL present = FALSE;
  BOOL defaulted = FALSE;
  ACL* list = nullptr;
  ASSERT_TRUE(
      GetSecurityDescriptorDacl(access.Get()->lpSecurityDescriptor, &present, &list, &defaulted));
  void* first = nullptr;
  ASSERT_TRUE(GetAce(list, 0, &first));
  EXPECT_TRUE(EqualSid(&static_cast<ACCESS_ALLOWED_ACE*>(first)->SidStart, TokenUser().Get()));
}

/// Whether a list lets in others whose one entry, of this kind, names `who`.
bool LetsIn(PSID who, int kind, DWORD rights) {
  alignas(ACL) std::array<std::byte, 200> bytes{};
  auto* const list = reinterpret_cast<ACL*>(bytes.data());
  EXPECT_TRUE(InitializeAcl(list, static_cast<DWORD>(bytes.size()), ACL_REVISION));
  EXPECT_TRUE(AddAccessAllowedAce(list, ACL_REVISION, rights, who));
  void* entry = nullptr;
  EXPECT_TRUE(GetAce(list, 0, &entry));
  static_cast<ACE_HEADER*>(entry)->AceType = static_cast<BYTE>(kind);
  return LetsInOthers(list, TokenUser().Get());
}

TEST(PrivateFiles, AnEntryOfAnyKindLetsOthersIn) {
  PSID everybody = nullptr;
  ASSERT_TRUE(ConvertStringSidToSidW(L"S-1-1-0", &everybody));
  const LocalPointer kept(everybody);
  for (const int kind : {ACCESS_ALLOWED_ACE_TYPE, ACCESS_ALLOWED_CALLBACK_ACE_TYPE,
                         ACCESS_ALLOWED_OBJECT_ACE_TYPE}) {
    EXPECT_TRUE(LetsIn(everybody, kind, FILE_GENERIC_READ)) << kind;
    EXPECT_FALSE(LetsIn(everybody, kind, 0)) << kind;
  }
  EXPECT_FALSE(LetsIn(everybody, ACCESS_DENIED_ACE_TYPE, FILE_GENERIC_READ));
  EXPECT_FALSE(LetsIn(TokenUser().Get(), ACCESS_ALLOWED_ACE_TYPE, FILE_ALL_ACCESS));
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
