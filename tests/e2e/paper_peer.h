#pragma once

#include <atomic>
#include <limits>
#include <numeric>
#include <string>
#include <thread>
#include <vector>

#include "bridges/scripted_peer.h"
#include "support/paper_machine.h"
#include "support/virtual_time.h"

namespace morvane::e2e {

/// The machine on paper at the other end of a pseudo-terminal. Set it up, then `Serve`; what it has
/// heard may be looked at after `Stop`.
class PaperPeer {
 public:
  PaperPeer() = default;
  ~PaperPeer() { Stop(); }
  PaperPeer(const PaperPeer&) = delete;
  PaperPeer& operator=(const PaperPeer&) = delete;

  test::ScriptedBridge Bridge{clock_};
  test::PaperMachine Paper{Bridge};
  std::size_t LeavesAfter = std::numeric_limits<std::size_t>::max();  ///< frames, then it is gone
  std::size_t SilentAfter = std::numeric_limits<std::size_t>::max();  ///< frames, the line stays
  std::vector<test::Bytes> Heard;                                     ///< plain frames
  int BadChecks = 0;

  [[nodiscard]] const std::string& Path() const { return peer_.Path(); }
  void Serve() {
    thread_ = std::thread([this] {
      while (!over_ && Heard.size() < LeavesAfter) Answer();
      if (!over_) peer_.Leave();
    });
  }
  void Stop() {
    over_ = true;
    if (thread_.joinable()) thread_.join();
  }

 private:
  void Answer() {
    test::Bytes wire = peer_.Take(8);
    if (wire.size() < 8) {
      // Nothing comes before the first contact, and nothing after the program has gone.
      if (!Heard.empty()) over_ = true;
      return;
    }
    if (test::OffTheWire(wire, 23)[0] >= 0x80) {
      const test::Bytes rest = peer_.Take(128);
      wire.insert(wire.end(), rest.begin(), rest.end());
    }
    const test::Bytes plain = test::OffTheWire(wire, 23);
    const int sum = std::accumulate(plain.begin(), plain.end(), 0) & 255;
    if (sum != 255 - wire[7]) ++BadChecks;
    Heard.push_back(plain);
    if (Heard.size() <= SilentAfter) peer_.Send(Bridge.Answer(plain));
  }

  test::VirtualClock clock_;
  bridges::ScriptedPeer peer_;
  std::atomic<bool> over_ = false;
  std::thread thread_;
};

}  // namespace morvane::e2e
