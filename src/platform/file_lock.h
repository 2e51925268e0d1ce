#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace morvane {

/// A lock between processes (and between objects of one process), held on a file of its own until
/// this object goes. The system drops it when its holder dies. The file stays; it is empty, and its
/// user's alone: who can only read a folder must not hold up who works in it.
class FileLock {
 public:
  /// How long a holder may take; one that is stopped in the middle would make others wait for ever.
  static constexpr std::chrono::milliseconds kPatience{10000};
  /// Between two tries. Short: who lets go may take it again at once, and this one must find the
  /// gap.
  static constexpr std::chrono::microseconds kPause{50};

  /// Waits for the lock, making the file where it is missing. Nothing when it cannot be had, and
  /// `RuntimeError::Last` says why: ETIMEDOUT when `patience` was over.
  [[nodiscard]] static std::optional<FileLock> Wait(const std::string& path,
                                                    std::chrono::milliseconds patience = kPatience);
  /// The same as long as `goOn`, which pauses, says so between two tries.
  [[nodiscard]] static std::optional<FileLock> Wait(const std::string& path,
                                                    const std::function<bool()>& goOn);
  /// The same without waiting: nothing also when another holds the lock.
  [[nodiscard]] static std::optional<FileLock> Try(const std::string& path);
  /// The same; `held` says whether it is because another holds the lock.
  [[nodiscard]] static std::optional<FileLock> Try(const std::string& path, bool& held);

  FileLock(FileLock&& other) noexcept;
  FileLock& operator=(FileLock&& other) noexcept;
  ~FileLock();

 private:
  static constexpr std::intptr_t kNone = -1;
  explicit FileLock(std::intptr_t file) : file_(file) {}
  std::intptr_t file_ = kNone;
};

}  // namespace morvane
