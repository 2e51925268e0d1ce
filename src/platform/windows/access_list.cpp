#include "platform/windows/access_list.h"

// The others need the types of windows.h, which is there.
#include <aclapi.h>
#include <sddl.h>

#include <cstddef>
#include <string_view>
#include <vector>

#include "platform/windows/handle.h"

namespace morvane {
namespace {

/// What the program's token says of `what`; empty where it says nothing.
std::vector<std::byte> OfToken(TOKEN_INFORMATION_CLASS what) {
  HANDLE opened = nullptr;
  if (!OpenProcessToken(GetCurrentProcess(), TOKEN_QUERY, &opened)) return {};
  const OpenedHandle token(opened);
  DWORD size = 0;
  GetTokenInformation(token.get(), what, nullptr, 0, &size);
  std::vector<std::byte> answer(size);
  if (!GetTokenInformation(token.get(), what, answer.data(), size, &size)) return {};
  return answer;
}

/// The program's user, as long as this lives.
class User {
 public:
  [[nodiscard]] PSID Get() const {
    return answer_.empty() ? nullptr
                           : reinterpret_cast<const TOKEN_USER*>(answer_.data())->User.Sid;
  }

 private:
  std::vector<std::byte> answer_ = OfToken(TokenUser);
};

/// Whether this user made what `owner` owns: an administrator's files may be owned by all of them.
bool IsOurs(PSID owner, PSID user) {
  const std::vector<std::byte> answer = OfToken(TokenOwner);
  return EqualSid(owner, user) ||
         (!answer.empty() &&
          EqualSid(owner, reinterpret_cast<const TOKEN_OWNER*>(answer.data())->Owner));
}

std::wstring TextOf(PSID who) {
  wchar_t* text = nullptr;
  if (who == nullptr || !ConvertSidToStringSidW(who, &text)) return {};
  const LocalPointer kept(text);
  return text;
}

/// The list in the system's own words: for the user, the system and its administrators, all
/// rights, for what is made within as well.
void* MakeList(OwnAccess::Of whose) {
  const std::wstring user = TextOf(User().Get());
  if (user.empty()) return nullptr;
  const bool isUsers = whose == OwnAccess::Of::kUser;
  const std::wstring words =
      isUsers ? L"O:" + user + L"D:P(A;;FA;;;" + user + L")"
              : L"D:P(A;OICI;FA;;;" + user + L")(A;OICI;FA;;;SY)(A;OICI;FA;;;BA)";
  void* list = nullptr;
  const BOOL made = ConvertStringSecurityDescriptorToSecurityDescriptorW(
      words.c_str(), SDDL_REVISION_1, &list, nullptr);
  return made ? list : nullptr;
}

ACL* ListIn(void* description) {
  BOOL present = FALSE;
  BOOL defaulted = FALSE;
  ACL* list = nullptr;
  const BOOL got = GetSecurityDescriptorDacl(description, &present, &list, &defaulted);
  return got && present ? list : nullptr;
}

/// Owner and list of what stands at a path.
struct Access {
  explicit Access(const std::wstring& path) {
    void* description = nullptr;
    const DWORD error = GetNamedSecurityInfoW(
        path.c_str(), SE_FILE_OBJECT, OWNER_SECURITY_INFORMATION | DACL_SECURITY_INFORMATION,
        &Owner, nullptr, &List, nullptr, &description);
    Known = error == ERROR_SUCCESS;
    Kept.reset(description);
  }
  bool Known = false;
  PSID Owner = nullptr;
  ACL* List = nullptr;
  LocalPointer Kept;
};

/// Who owns what is opened; null where the system does not tell.
struct Owner {
  Owner(HANDLE opened, SE_OBJECT_TYPE type) {
    void* description = nullptr;
    const DWORD error = GetSecurityInfo(opened, type, OWNER_SECURITY_INFORMATION, &Sid, nullptr,
                                        nullptr, nullptr, &description);
    Kept.reset(description);
    if (error != ERROR_SUCCESS) Sid = nullptr;
  }
  PSID Sid = nullptr;
  LocalPointer Kept;
};

/// The service to which the system's own folders belong.
constexpr std::wstring_view kInstaller =
    L"S-1-5-80-956008885-3418522649-1831038044-1853292631-2271478464";

/// Not persons, or persons who get in whatever a list says.
bool MayBeLetIn(PSID who, PSID user) {
  return EqualSid(who, user) || IsWellKnownSid(who, WinLocalSystemSid) ||
         IsWellKnownSid(who, WinBuiltinAdministratorsSid) ||
         IsWellKnownSid(who, WinCreatorOwnerSid) || IsWellKnownSid(who, WinCreatorOwnerRightsSid);
}

/// Whether the entry, where it says anything, allows it under a condition or for a kind of things.
bool IsUnusual(const ACCESS_ALLOWED_ACE& entry) {
  switch (entry.Header.AceType) {
    case ACCESS_ALLOWED_OBJECT_ACE_TYPE:
    case ACCESS_ALLOWED_CALLBACK_ACE_TYPE:
    case ACCESS_ALLOWED_CALLBACK_OBJECT_ACE_TYPE:
      return true;
    default:
      return false;
  }
}

bool LetsInOther(ACCESS_ALLOWED_ACE& entry, PSID user) {
  if (entry.Mask == 0) return false;
  return IsUnusual(entry) ||
         (entry.Header.AceType == ACCESS_ALLOWED_ACE_TYPE && !MayBeLetIn(&entry.SidStart, user));
}

}  // namespace

OwnAccess::OwnAccess(Of whose) : list_(MakeList(whose)) {
  attributes_.nLength = sizeof attributes_;
  attributes_.lpSecurityDescriptor = list_.get();
}

void OwnAccess::GiveTo(const std::wstring& path) const {
  if (!list_) return;
  constexpr DWORD kOwnAlone = DACL_SECURITY_INFORMATION | PROTECTED_DACL_SECURITY_INFORMATION;
  std::wstring name = path;
  // This one reaches what is in a folder too.
  SetNamedSecurityInfoW(name.data(), SE_FILE_OBJECT, kOwnAlone, nullptr, nullptr,
                        ListIn(list_.get()), nullptr);
  // Where it has taken over what the folder above lets in all the same.
  if (IsOwnAndTooOpen(path)) SetFileSecurityW(path.c_str(), kOwnAlone, list_.get());
}

bool IsOwnAndTooOpen(const std::wstring& path) {
  const User user;
  const Access access(path);
  if (!access.Known || user.Get() == nullptr || !IsOurs(access.Owner, user.Get())) return false;
  return access.List == nullptr || LetsInOthers(access.List, user.Get());
}

bool LetsInOthers(ACL* list, PSID user) {
  for (DWORD i = 0; i < list->AceCount; ++i) {
    void* entry = nullptr;
    if (!GetAce(list, i, &entry)) return true;
    if (LetsInOther(*static_cast<ACCESS_ALLOWED_ACE*>(entry), user)) return true;
  }
  return false;
}

bool IsOwnOrSystems(HANDLE opened) {
  const Owner owner(opened, SE_FILE_OBJECT);
  return owner.Sid != nullptr && IsTrustedOwner(owner.Sid);
}

bool IsTrustedOwner(PSID owner) {
  const User user;
  return (user.Get() != nullptr && IsOurs(owner, user.Get())) ||
         IsWellKnownSid(owner, WinLocalSystemSid) ||
         IsWellKnownSid(owner, WinBuiltinAdministratorsSid) || IsWellKnownSid(owner, WinWorldSid) ||
         TextOf(owner) == kInstaller;
}

bool BelongsToUser(HANDLE pipe) {
  const Owner owner(pipe, SE_KERNEL_OBJECT);
  const User user;
  return user.Get() != nullptr && owner.Sid != nullptr && EqualSid(owner.Sid, user.Get());
}

void CopyAccess(const std::wstring& from, const std::wstring& to) {
  const Access access(from);
  if (access.Known) SetFileSecurityW(to.c_str(), DACL_SECURITY_INFORMATION, access.Kept.get());
}

}  // namespace morvane
