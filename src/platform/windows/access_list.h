#pragma once

#include <windows.h>

#include <memory>
#include <string>

namespace morvane {

struct LocalMemory {
  void operator()(void* memory) const { LocalFree(memory); }
};
/// What the system has made and leaves to its caller.
using LocalPointer = std::unique_ptr<void, LocalMemory>;

/// The access list of what is this user's alone: the user, and the system and its administrators,
/// who keep copies and look for viruses. It takes nothing over from the folder; what is made in a
/// private folder takes it over.
class OwnAccess {
 public:
  /// Whose it is: also the system's; or, for what passes between programs, the user's alone, who
  /// owns it then even where an administrator's things belong to all of them.
  enum class Of { kUserAndSystem, kUser };

  explicit OwnAccess(Of whose = Of::kUserAndSystem);
  /// For the making of a file or folder; null where there is none, and the folder decides.
  [[nodiscard]] SECURITY_ATTRIBUTES* Get() { return list_ ? &attributes_ : nullptr; }
  /// Gives it to what is there.
  void GiveTo(const std::wstring& path) const;

 private:
  LocalPointer list_;
  SECURITY_ATTRIBUTES attributes_{};
};

/// Whether this user owns it, and its list lets in anybody but this user, the system and its
/// administrators.
[[nodiscard]] bool IsOwnAndTooOpen(const std::wstring& path);

/// Whether a list lets in anybody else. An entry that holds under a condition, or for a kind of
/// things, counts whomever it names: none of ours is one.
[[nodiscard]] bool LetsInOthers(ACL* list, PSID user);

/// Whether an opened file or folder belongs to this user, or to the system and those who may do
/// everything in it anyway. Where the file system knows no owners it belongs to everybody.
[[nodiscard]] bool IsOwnOrSystems(HANDLE opened);
/// The same for the one who owns it.
[[nodiscard]] bool IsTrustedOwner(PSID owner);

/// Whether this very user owns the pipe.
[[nodiscard]] bool BelongsToUser(HANDLE pipe);

/// Gives `to` the access list that `from` has, as far as the system lets us.
void CopyAccess(const std::wstring& from, const std::wstring& to);

}  // namespace morvane
