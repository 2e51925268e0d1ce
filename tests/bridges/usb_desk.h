#pragma once

#include <gmock/gmock.h>

#include <chrono>
#include <numeric>

#include "bridges/usb/usb_direct.h"
#include "support/emulated_bus.h"

namespace morvane::bridges {

using std::chrono::steady_clock;
using test::Bytes;
using test::EmulatedUsb;

inline constexpr UsbXpress::Handle kNoHandle = -1;
/// A test that waits this long has hung in effect.
inline constexpr std::uint32_t kLongMs = 5000;

inline double MsSince(steady_clock::time_point start) {
  return std::chrono::duration<double, std::milli>(steady_clock::now() - start).count();
}

/// The bytes 0, 1, 2 ...
inline Bytes CountedBytes(std::size_t count) {
  Bytes bytes(count);
  std::iota(bytes.begin(), bytes.end(), std::uint8_t{0});
  return bytes;
}

/// The string up to its end, or the status in words.
inline std::string SerialOf(UsbXpress& usb, std::uint32_t index) {
  UsbXpress::ProductString text;
  text.fill('x');
  const auto status = usb.GetProductString(index, text, UsbXpress::kSerialString);
  return status == UsbXpress::kSuccess ? text.data() : "status " + std::to_string(status);
}

/// An emulated bus, and a program at it.
class UsbBusTest : public testing::Test {
 protected:
  std::uint32_t Count(UsbXpress& usb) {
    std::uint32_t count = 99;
    status_ = usb.GetNumDevices(count);
    return count;
  }

  test::EmulatedBus bus_;
  UsbXpress::Status status_ = 99;
};

/// One machine at the bus.
class UsbDirectTest : public UsbBusTest {
 protected:
  /// Opens as the program does.
  void Open(std::uint32_t readMs, std::uint32_t writeMs = 30) {
    ASSERT_EQ(Count(usb_), 1U);
    ASSERT_EQ(usb_.Open(0, handle_), UsbXpress::kSuccess) << usb_.Advice();
    ASSERT_EQ(usb_.SetTimeouts(readMs, writeMs), UsbXpress::kSuccess);
    ASSERT_EQ(usb_.SetBaudRate(handle_, UsbXpress::kBaudRate), UsbXpress::kSuccess);
    ASSERT_EQ(usb_.SetLineControl(handle_, UsbXpress::kEightDataBitsNoParity), UsbXpress::kSuccess);
    ASSERT_EQ(usb_.FlushBuffers(handle_, 1, 1), UsbXpress::kSuccess);
  }

  Bytes Read(std::size_t count) {
    Bytes bytes(count, 0xEE);
    std::uint32_t read = 99;
    status_ = usb_.Read(handle_, bytes, read);
    EXPECT_LE(read, count);
    bytes.resize(read);
    return bytes;
  }

  std::uint32_t Write(const Bytes& bytes) {
    std::uint32_t written = 99;
    status_ = usb_.Write(handle_, bytes, written);
    return written;
  }

  EmulatedUsb& chip_ = bus_.Attach();
  UsbDirect usb_{{}};
  UsbXpress::Handle handle_ = kNoHandle;
};

}  // namespace morvane::bridges
