#pragma once

#include <QSerialPort>
#include <chrono>
#include <string>

#include "platform/usb_xpress.h"

namespace morvane::bridges {

/// The bridge as the operating system's own driver shows it: a serial device, or a pseudo-terminal,
/// at 115200 8N1. It is the only device of its library. Needs a `QCoreApplication`; no event runs
/// inside a read or a write. A device that is gone gives short counts at once until it is opened
/// anew. A line that babbles costs no memory: what nobody reads is dropped.
class SerialBridge final : public UsbXpress {
 public:
  /// `path` is a device file or the system's short name of one ("ttyUSB0", "COM3").
  explicit SerialBridge(const std::string& path);
  SerialBridge(const SerialBridge&) = delete;
  SerialBridge& operator=(const SerialBridge&) = delete;

  Status GetDllVersion(std::uint32_t& high, std::uint32_t& low) override;
  Status GetDriverVersion(std::uint32_t& high, std::uint32_t& low) override;
  Status GetNumDevices(std::uint32_t& count) override;
  /// The last part of the path.
  Status GetProductString(std::uint32_t index, ProductString& text, std::uint32_t option) override;
  /// `kDeviceIoFailed`: another program has the device, or it may not be used by this user.
  Status Open(std::uint32_t index, Handle& handle) override;
  Status SetTimeouts(std::uint32_t readMs, std::uint32_t writeMs) override;
  Status SetBaudRate(Handle handle, std::uint32_t rate) override;
  Status SetLineControl(Handle handle, std::uint16_t control) override;
  Status FlushBuffers(Handle handle, std::uint8_t transmit, std::uint8_t receive) override;
  /// What the time-out left over is dropped, so that no half frame goes out late.
  Status Write(Handle handle, std::span<const std::uint8_t> bytes, std::uint32_t& written) override;
  Status Read(Handle handle, std::span<std::uint8_t> bytes, std::uint32_t& read) override;
  /// Line 0 is the data-terminal-ready line; the bridge's other lines do not exist here.
  Status WriteLatch(Handle handle, std::uint8_t mask, std::uint8_t value) override;
  /// What the line has not taken yet is dropped, so that closing never waits.
  Status Close(Handle handle) override;
  /// That there is no such device, that another program has it, that this user may not use it.
  [[nodiscard]] std::string Advice() const override { return advice_; }

 private:
  [[nodiscard]] Status Missing();
  [[nodiscard]] Status Failed();
  [[nodiscard]] Status Refused();
  [[nodiscard]] bool Attached() const;
  [[nodiscard]] bool Opened(Handle handle) const;
  [[nodiscard]] bool Usable(Handle handle) const;
  void CloseWhenGone();
  void DropBabble();

  std::string path_;
  std::string advice_;
  QSerialPort port_;
  bool opened_ = false;  ///< by the program; the port itself closes when the device goes
  std::chrono::milliseconds readTime_{1000};
  std::chrono::milliseconds writeTime_{1000};
};

}  // namespace morvane::bridges
