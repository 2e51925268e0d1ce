#include "platform/lock_patience.h"

#include <cerrno>
#include <chrono>

namespace morvane {

/// One wait. It is told when it grows long, and told to be over when it goes.
class LockPatience::Waiting {
 public:
  Waiting(LockPatience& owner, const std::string& what)
      : owner_(owner), what_(what), start_(owner.time_.Elapsed()) {}
  Waiting(const Waiting&) = delete;
  Waiting& operator=(const Waiting&) = delete;
  ~Waiting() {
    const int error = errno;  // the caller's reason
    owner_.left_ -= owner_.time_.Elapsed() - start_;
    if (painted_.count() > 0) owner_.ui_.Waiting("");
    errno = error;
  }

  /// Pauses. False when the patience is over.
  bool GoOn() {
    const auto waited = owner_.time_.Elapsed() - start_;
    if (waited >= owner_.left_ || owner_.loop_.Quitting()) return false;
    if (waited >= painted_ + kUntold) Show(waited);
    owner_.time_.Spend(FileLock::kPause);
    return true;
  }

 private:
  void Show(std::chrono::microseconds now) {
    if (painted_.count() == 0) owner_.ui_.Waiting("Waiting for another program: " + what_);
    painted_ = now;
    owner_.loop_.Paint();
  }

  LockPatience& owner_;
  const std::string& what_;
  std::chrono::microseconds start_;
  std::chrono::microseconds painted_{0};  ///< how long it had lasted when the windows last painted
};

std::optional<FileLock> LockPatience::Lock(const std::string& path, const std::string& what) {
  Waiting waiting(*this, what);
  return FileLock::Wait(path, [&waiting] { return waiting.GoOn(); });
}

}  // namespace morvane
