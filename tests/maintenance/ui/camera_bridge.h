#pragma once

#include <algorithm>
#include <functional>
#include <utility>

#include "support/passing_bridge.h"
#include "support/scripted_bridge.h"

namespace morvane::maintenance {

/// A machine whose camera, or flash, is on paper: what the test answers comes back in place of the
/// machine's word.
class CameraBridge final : public test::PassingBridge {
 public:
  using PassingBridge::PassingBridge;

  /// Plain reply to a plain frame; empty: it goes to the machine.
  std::function<test::Bytes(const test::Bytes& plain)> Answer;
  /// What becomes of such an answer on the wire; emptied, it is lost.
  std::function<void(test::Bytes& wire)> OnWire;

  Status Write(Handle handle, std::span<const std::uint8_t> bytes,
               std::uint32_t& written) override {
    unread_.clear();
    const auto plain = test::OffTheWire({bytes.begin(), bytes.end()}, kSent);
    const test::Bytes reply = Answer ? Answer(plain) : test::Bytes{};
    if (reply.empty()) return PassingBridge::Write(handle, bytes, written);
    unread_ = test::OnTheWire(reply, kReceived);
    if (OnWire) OnWire(unread_);
    written = static_cast<std::uint32_t>(bytes.size());
    return kSuccess;
  }
  Status Read(Handle handle, std::span<std::uint8_t> bytes, std::uint32_t& read) override {
    if (unread_.size() < bytes.size()) return PassingBridge::Read(handle, bytes, read);
    const auto end = unread_.begin() + static_cast<std::ptrdiff_t>(bytes.size());
    std::copy(unread_.begin(), end, bytes.begin());
    unread_.erase(unread_.begin(), end);
    read = static_cast<std::uint32_t>(bytes.size());
    return kSuccess;
  }

 private:
  static constexpr int kSent = 23;
  static constexpr int kReceived = 21;
  test::Bytes unread_;
};

}  // namespace morvane::maintenance
