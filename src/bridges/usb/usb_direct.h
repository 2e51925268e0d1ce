#pragma once

#include <array>
#include <chrono>
#include <memory>
#include <string>
#include <vector>

#include "bridges/usb/usb_bus.h"
#include "bridges/usb/usb_connection.h"
#include "platform/usb_xpress.h"

namespace morvane::bridges {

/// The bridge chip itself, spoken to through libusb: no driver is needed. A read waits on the chip.
/// A device that is gone gives short counts at once until it is opened anew. What has come and was
/// not read is one packet at most; the rest waits in the chip, which drops what it has no room for.
class UsbDirect final : public UsbXpress {
 public:
  explicit UsbDirect(UsbWhich which) : which_(std::move(which)) {}
  UsbDirect(const UsbDirect&) = delete;
  UsbDirect& operator=(const UsbDirect&) = delete;
  ~UsbDirect() override;

  /// `kDriverMissing` when libusb can't be started.
  Status GetDllVersion(std::uint32_t& high, std::uint32_t& low) override;
  Status GetDriverVersion(std::uint32_t& high, std::uint32_t& low) override;
  /// Looks anew. A device that does not tell its serial string counts, unless one is asked for.
  Status GetNumDevices(std::uint32_t& count) override;
  /// Of the devices that `GetNumDevices` has found, as `Open`.
  Status GetProductString(std::uint32_t index, ProductString& text, std::uint32_t option) override;
  /// `kDeviceIoFailed`: it is there and was refused, `Advice` says why.
  Status Open(std::uint32_t index, Handle& handle) override;
  Status SetTimeouts(std::uint32_t readMs, std::uint32_t writeMs) override;
  Status SetBaudRate(Handle handle, std::uint32_t rate) override;
  Status SetLineControl(Handle handle, std::uint16_t control) override;
  Status FlushBuffers(Handle handle, std::uint8_t transmit, std::uint8_t receive) override;
  /// What the time-out left over does not go out.
  Status Write(Handle handle, std::span<const std::uint8_t> bytes, std::uint32_t& written) override;
  Status Read(Handle handle, std::span<std::uint8_t> bytes, std::uint32_t& read) override;
  /// `kFunctionNotSupported`: this chip has no latch lines.
  Status WriteLatch(Handle handle, std::uint8_t mask, std::uint8_t value) override;
  Status Close(Handle handle) override;
  [[nodiscard]] std::string Advice() const override { return advice_; }

 private:
  [[nodiscard]] bool Opened(Handle handle) const;
  [[nodiscard]] bool Usable(Handle handle) const;
  Status Refuse(Status status, std::string advice);
  Status Connect(const UsbFound& device);
  Status RefuseFor(UsbFault fault, const UsbFound& device);
  Status RefuseAll();
  [[nodiscard]] Status Of(UsbFault fault) const;
  /// Of what belongs to the opening: a fault is told in words, too.
  Status OfSetting(UsbFault fault);
  [[nodiscard]] std::string Welcome(const UsbFound& device) const;
  UsbFault Tell(const ControlRequest& request);
  /// Forgets the device when that is what `fault` says.
  UsbFault Noted(UsbFault fault);
  UsbFault Fetch(unsigned ms);
  /// Behind a fault that a read goes on behind.
  UsbFault Mended(UsbFault fault);
  void LowerLatch();
  [[nodiscard]] std::size_t TakeHeld(std::span<std::uint8_t> bytes);
  void Drain();

  UsbWhich which_;
  std::vector<UsbFound> attached_;  ///< all with the numbers asked for
  std::vector<UsbFound> found_;     ///< those that are meant
  std::string advice_;
  bool opened_ = false;                        ///< by the program
  std::unique_ptr<UsbConnection> connection_;  ///< goes with the device
  bool hasLatch_ = false;
  std::uint8_t latch_ = 0;  ///< the lines that this program has raised
  std::array<std::uint8_t, UsbConnection::kLongestPacket> held_{};
  std::size_t heldFrom_ = 0;
  std::size_t heldTo_ = 0;
  std::chrono::milliseconds readTime_{1000};
  std::chrono::milliseconds writeTime_{1000};
};

}  // namespace morvane::bridges
