#pragma once

#include <chrono>
#include <optional>
#include <string>

#include "platform/clock.h"
#include "platform/event_loop.h"
#include "platform/file_lock.h"
#include "platform/ui.h"

namespace morvane {

/// Waits for locks on the operator's behalf, `FileLock::kPatience` in all a flow: once that is used
/// up, locks are only tried until the next flow begins. None is waited for when the program is
/// quitting.
class LockPatience {
 public:
  /// A wait as long as this is told, and the windows go on painting.
  static constexpr std::chrono::milliseconds kUntold{200};

  LockPatience(Ui& ui, EventLoop& loop, Clock& time) : ui_(ui), loop_(loop), time_(time) {}
  LockPatience(const LockPatience&) = delete;
  LockPatience& operator=(const LockPatience&) = delete;

  /// A new flow or command begins.
  void Renew() {
    if (!oneFlow_) left_ = FileLock::kPatience;
  }
  /// All that the program does is one flow to its user.
  void BeOneFlow() { oneFlow_ = true; }

  /// Nothing where it cannot be had, and `RuntimeError::Last` says why: ETIMEDOUT when another
  /// holds it all the time. `what` it protects is told to the operator.
  [[nodiscard]] std::optional<FileLock> Lock(const std::string& path, const std::string& what);

 private:
  class Waiting;
  Ui& ui_;
  EventLoop& loop_;
  Clock& time_;
  bool oneFlow_ = false;
  std::chrono::microseconds left_ = FileLock::kPatience;
};

}  // namespace morvane
