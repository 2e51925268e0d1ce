#pragma once

#include <optional>
#include <string>
#include <utility>

#include "platform/file_lock.h"

namespace morvane {

/// The lock that the running program of a user and settings store holds: on the file
/// `<store>.<user>.instance`, beside the store that the path leads to. The system drops it when the
/// program dies.
class InstanceLock {
 public:
  explicit InstanceLock(std::string settingsFile) : settingsFile_(std::move(settingsFile)) {}

  /// Whether no other program holds it; from then on this one does. The store's folder is made
  /// where it is missing. Where the lock cannot be had at all, nobody can tell who else runs: the
  /// program may go on, without the lock.
  [[nodiscard]] bool Claim();
  [[nodiscard]] bool Held() const { return lock_.has_value(); }
  /// The same text in every program of this user on this store, whatever path it came by, and in no
  /// other. After a claim; empty where there is no lock file.
  [[nodiscard]] std::string Key() const;

 private:
  std::string settingsFile_;
  std::string path_;
  std::optional<FileLock> lock_;
};

}  // namespace morvane
