#pragma once

#include <chrono>
#include <cstdint>

#include "platform/clock.h"
#include "platform/usb_xpress.h"

namespace morvane::test {

/// A bridge that lets everything through and notes how long the program leaves the wire idle inside
/// its runs: from the end of each reply to the next send. A run goes from its start frame to the
/// reply of the version probe that ends it; what lies between two runs is the operator's.
class LinkGaps final : public UsbXpress {
 public:
  using Time = std::chrono::microseconds;

  /// All that passed inside the runs.
  struct Figures {
    int Runs = 0;
    std::uint64_t Sends = 0;
    std::uint64_t Bytes = 0;  ///< in both directions
    Time Taken{0};            ///< by the runs, from first to last byte
    Time Gaps{0};             ///< their sum
    Time Worst{0};            ///< the longest of them
    Time Writes{0};           ///< inside the writes, until the system had the bytes
    /// Ten bits a byte at 115200 baud.
    [[nodiscard]] Time OnTheWire() const { return Time(Bytes * 10 * 1'000'000 / kBaudRate); }
    [[nodiscard]] double PerCent() const {
      return 100.0 * static_cast<double>(Gaps.count()) / static_cast<double>(OnTheWire().count());
    }
  };

  LinkGaps(UsbXpress& usb, const Clock& time) : usb_(usb), time_(time) {}
  [[nodiscard]] const Figures& Noted() const { return figures_; }

  Status GetDllVersion(std::uint32_t& high, std::uint32_t& low) override {
    return usb_.GetDllVersion(high, low);
  }
  Status GetDriverVersion(std::uint32_t& high, std::uint32_t& low) override {
    return usb_.GetDriverVersion(high, low);
  }
  Status GetNumDevices(std::uint32_t& count) override { return usb_.GetNumDevices(count); }
  Status GetProductString(std::uint32_t index, ProductString& text, std::uint32_t option) override {
    return usb_.GetProductString(index, text, option);
  }
  Status Open(std::uint32_t index, Handle& handle) override { return usb_.Open(index, handle); }
  Status SetTimeouts(std::uint32_t readMs, std::uint32_t writeMs) override {
    return usb_.SetTimeouts(readMs, writeMs);
  }
  Status SetBaudRate(Handle handle, std::uint32_t rate) override {
    return usb_.SetBaudRate(handle, rate);
  }
  Status SetLineControl(Handle handle, std::uint16_t control) override {
    return usb_.SetLineControl(handle, control);
  }
  Status FlushBuffers(Handle handle, std::uint8_t transmit, std::uint8_t receive) override {
    return usb_.FlushBuffers(handle, transmit, receive);
  }
  Status Write(Handle handle, std::span<const std::uint8_t> bytes, std::uint32_t& written) override;
  Status Read(Handle handle, std::span<std::uint8_t> bytes, std::uint32_t& read) override;
  Status WriteLatch(Handle handle, std::uint8_t mask, std::uint8_t value) override {
    return usb_.WriteLatch(handle, mask, value);
  }
  Status Close(Handle handle) override { return usb_.Close(handle); }

 private:
  void NoteSend(std::span<const std::uint8_t> bytes, Time now);
  void EndRun();

  UsbXpress& usb_;
  const Clock& time_;
  Figures figures_;
  bool running_ = false;
  bool probing_ = false;  ///< the probe is sent, its reply ends the run
  Time start_{0};
  Time replied_{0};  ///< the end of the last read
};

}  // namespace morvane::test
