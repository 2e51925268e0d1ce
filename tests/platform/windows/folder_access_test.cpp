#include "platform/folder_access.h"

#include <windows.h>
// It needs its types.
#include <sddl.h>

#include "platform/files.h"
#include "platform/windows/access_list.h"
#include "platform/windows/handle.h"
#include "support/fakes.h"

namespace morvane::test {
namespace {

TEST(FolderAccess, AFolderOfOnesOwnIsEnteredAndTrusted) {
  const TempFolder folder;
  EXPECT_FALSE(WhyNotEntered(folder.Path()));
  EXPECT_FALSE(WhyNotTrusted(folder.Path()));
}

TEST(FolderAccess, WhatIsMissingOrNoFolderIsNotEntered) {
  const TempFolder folder;
  WriteContent(folder / "file", "");
  EXPECT_EQ(WhyNotEntered("")->Number, ENOENT);
  EXPECT_EQ(WhyNotEntered(folder / "none")->Number, ENOENT);
  EXPECT_EQ(WhyNotEntered(folder / "file")->Number, ENOTDIR);
}

TEST(FolderAccess, WhatIsNotThereYetIsTrusted) {
  EXPECT_FALSE(WhyNotTrusted("Q:\\Morvane_Data"));
  EXPECT_FALSE(WhyNotTrusted("\\\\nowhere\\share\\Morvane_Data"));
}

/// Whether what belongs to whom the number stands for is trusted.
bool IsTrusted(const wchar_t* number) {
  PSID owner = nullptr;
  EXPECT_TRUE(ConvertStringSidToSidW(number, &owner));
  const LocalPointer kept(owner);
  return IsTrustedOwner(owner);
}

TEST(FolderAccess, TheSystemAndItsAdministratorsAreTrusted) {
  EXPECT_TRUE(IsTrusted(L"S-1-5-18"));
  EXPECT_TRUE(IsTrusted(L"S-1-5-32-544"));
  EXPECT_TRUE(IsTrusted(L"S-1-5-80-956008885-3418522649-1831038044-1853292631-2271478464"));
}

TEST(FolderAccess, EverybodyOwnsWhatHasNoOwner) { EXPECT_TRUE(IsTrusted(L"S-1-1-0")); }

TEST(FolderAccess, AnotherUserIsNotTrusted) {
  EXPECT_FALSE(IsTrusted(L"S-1-5-21-1004336348-1177238915-682003330-4711"));
  EXPECT_FALSE(IsTrusted(L"S-1-5-32-545")) << "all users of the computer";
  EXPECT_FALSE(IsTrusted(L"S-1-5-32-546")) << "guests";
}

TEST(FolderAccess, WhatTheUserHasMadeIsHisOwn) {
  const TempFolder folder;
  const OpenedHandle opened =
      TakeHandle(CreateFileW(PathOfUtf8(folder.Path()).c_str(), READ_CONTROL, FILE_SHARE_READ,
                             nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
  ASSERT_TRUE(opened);
  EXPECT_TRUE(IsOwnOrSystems(opened.get()));
}

}  // namespace
}  // namespace morvane::test
