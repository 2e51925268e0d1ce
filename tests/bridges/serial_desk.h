#pragma once

#include <gmock/gmock.h>

#include <chrono>
#include <numeric>

#include "bridges/scripted_peer.h"
#include "bridges/serial_bridge.h"

namespace morvane::bridges {

using std::chrono::steady_clock;

inline constexpr UsbXpress::Handle kNoHandle = -1;
/// A test that waits this long has hung in effect.
inline constexpr std::uint32_t kLongMs = 5000;

inline double MsSince(steady_clock::time_point start) {
  return std::chrono::duration<double, std::milli>(steady_clock::now() - start).count();
}

/// The bytes 0, 1, 2 ... , so that every value and every control character goes over the line.
inline Bytes CountedBytes(std::size_t count) {
  Bytes bytes(count);
  std::iota(bytes.begin(), bytes.end(), std::uint8_t{0});
  return bytes;
}

class SerialBridgeTest : public testing::Test {
 protected:
  /// Opens as the program does.
  void Open(std::uint32_t readMs, std::uint32_t writeMs = 30) {
    ASSERT_EQ(bridge_.Open(0, handle_), UsbXpress::kSuccess);
    ASSERT_EQ(bridge_.SetTimeouts(readMs, writeMs), UsbXpress::kSuccess);
    ASSERT_EQ(bridge_.SetBaudRate(handle_, UsbXpress::kBaudRate), UsbXpress::kSuccess);
    ASSERT_EQ(bridge_.SetLineControl(handle_, UsbXpress::kEightDataBitsNoParity),
              UsbXpress::kSuccess);
    ASSERT_EQ(bridge_.FlushBuffers(handle_, 1, 1), UsbXpress::kSuccess);
  }

  /// Reads and keeps what came; the status is in `status_`.
  Bytes Read(std::size_t count) {
    Bytes bytes(count, 0xEE);
    std::uint32_t read = 99;
    status_ = bridge_.Read(handle_, bytes, read);
    EXPECT_LE(read, count);
    bytes.resize(read);
    return bytes;
  }

  std::uint32_t Write(const Bytes& bytes) {
    std::uint32_t written = 99;
    status_ = bridge_.Write(handle_, bytes, written);
    return written;
  }

  ScriptedPeer peer_;
  SerialBridge bridge_{peer_.Path()};
  UsbXpress::Handle handle_ = kNoHandle;
  UsbXpress::Status status_ = 99;
};

}  // namespace morvane::bridges
