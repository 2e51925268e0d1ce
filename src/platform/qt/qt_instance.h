#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

#include "platform/event_loop.h"
#include "platform/instance.h"
#include "platform/instance_lock.h"

class QLocalServer;

namespace morvane {

/// The running one is who holds the lock beside the store. It listens on a local socket that only
/// its user can open. In a call it says 5 (ready), the caller gives one command behind its length
/// (4 bytes, most significant first), and it says 6 (taken). Who says anything else is hung up on.
class QtInstance final : public Instance {
 public:
  static constexpr int kPatienceMs = 2000;  ///< how long a call may last, on both sides
  static constexpr std::size_t kLongestCommand = 65536;
  static constexpr int kMostCalls = 16;  ///< at a time; who calls then has to call again

  QtInstance(EventLoop& loop, std::string settingsFile);
  QtInstance(const QtInstance&) = delete;
  QtInstance& operator=(const QtInstance&) = delete;
  ~QtInstance() override;

  [[nodiscard]] bool Claim() override { return lock_.Claim(); }
  /// Calls again while the running one does not listen yet. The event loop goes on meanwhile.
  [[nodiscard]] bool HandOver(std::string_view command) override;
  void Listen(Execute execute) override;

 private:
  void TakeCalls();

  EventLoop& loop_;
  InstanceLock lock_;
  Execute execute_;
  std::unique_ptr<QLocalServer> server_;  ///< goes before the lock: a socket is its holder's
};

}  // namespace morvane
