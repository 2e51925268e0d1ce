#pragma once

#include <chrono>
#include <optional>
#include <set>
#include <string>

#include "platform/clock.h"
#include "platform/event_loop.h"
#include "platform/file_lock.h"
#include "platform/ui.h"

namespace morvane {

/// Waits for locks on the operator's behalf, once a flow: a lock that did not come within
/// `FileLock::kPatience` is only tried from then on, until it could be had or the next flow begins.
/// No lock is waited for when the program is quitting.
class LockPatience {
 public:
  /// A wait as long as this is told, and the windows go on painting.
  static constexpr std::chrono::milliseconds kUntold{200};

  LockPatience(Ui& ui, EventLoop& loop, Clock& time) : ui_(ui), loop_(loop), time_(time) {}
  LockPatience(const LockPatience&) = delete;
  LockPatience& operator=(const LockPatience&) = delete;

  /// A new flow or command begins.
  void Renew() { inVain_.clear(); }
  /// The program has little time left: from now on locks are only tried.
  void WaitNoMore() { over_ = true; }

  /// Nothing where it cannot be had, and `RuntimeError::Last` says why: ETIMEDOUT when another
  /// holds it all the time. `what` it protects is told to the operator.
  [[nodiscard]] std::optional<FileLock> Lock(const std::string& path, const std::string& what);

 private:
  class Waiting;
  [[nodiscard]] std::optional<FileLock> Try(const std::string& path);
  Ui& ui_;
  EventLoop& loop_;
  Clock& time_;
  bool over_ = false;
  std::set<std::string> inVain_;  ///< the paths that were waited for and not had
};

}  // namespace morvane
