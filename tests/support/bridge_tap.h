#pragma once

#include <functional>

#include "support/passing_bridge.h"

namespace morvane::test {

/// For who wants to know when a frame goes out.
class BridgeTap final : public PassingBridge {
 public:
  using PassingBridge::PassingBridge;

  std::function<void()> OnFrame;  ///< before each frame is written

  Status Write(Handle handle, std::span<const std::uint8_t> bytes,
               std::uint32_t& written) override {
    if (OnFrame) OnFrame();
    return PassingBridge::Write(handle, bytes, written);
  }
};

}  // namespace morvane::test
