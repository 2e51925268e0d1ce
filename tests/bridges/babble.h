#pragma once

#include <atomic>
#include <thread>

#include "bridges/scripted_peer.h"

namespace morvane::bridges {

/// Sends without a pause until it is stopped.
class Babble {
 public:
  explicit Babble(const ScriptedPeer& peer)
      : thread_([this, &peer] {
          const Bytes bytes(1024, 0x5A);
          while (!over_) sent_ += peer.SendSome(bytes);
        }) {}
  ~Babble() { Stop(); }
  Babble(const Babble&) = delete;
  Babble& operator=(const Babble&) = delete;
  void Stop() {
    over_ = true;
    if (thread_.joinable()) thread_.join();
  }
  [[nodiscard]] std::size_t Sent() const { return sent_; }

 private:
  std::atomic<bool> over_ = false;
  std::atomic<std::size_t> sent_ = 0;
  std::thread thread_;
};

}  // namespace morvane::bridges
