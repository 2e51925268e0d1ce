#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>

#include "bridges/usb/bridge_chip.h"
#include "bridges/usb/usb_bus.h"

struct libusb_device_handle;

namespace morvane::bridges {

/// A bridge chip that this program has for itself. The system's own driver is put aside for as long
/// as this lives and given its device back behind that.
class UsbConnection {
 public:
  /// Of a packet that can come: 64 bytes at full speed, of a faster chip 512.
  static constexpr std::size_t kLongestPacket = 512;

  /// Null, and `fault` says why.
  [[nodiscard]] static std::unique_ptr<UsbConnection> Make(const UsbFound& device, UsbFault& fault);
  ~UsbConnection();
  UsbConnection(const UsbConnection&) = delete;
  UsbConnection& operator=(const UsbConnection&) = delete;

  [[nodiscard]] UsbFault Tell(const ControlRequest& request);
  /// One byte.
  [[nodiscard]] std::optional<std::uint8_t> Ask(const ControlRequest& request);

  struct Moved {
    UsbFault Fault = UsbFault::kNone;
    std::size_t Count = 0;  ///< also with a fault
  };
  /// Waits for a packet. `bytes` has room for the longest; `ms` is above 0.
  [[nodiscard]] Moved In(std::span<std::uint8_t> bytes, unsigned ms);
  [[nodiscard]] Moved Out(std::span<const std::uint8_t> bytes, unsigned ms);
  /// Behind a stall, the endpoint works again.
  void RestartIn();
  void RestartOut();

 private:
  UsbConnection(std::shared_ptr<libusb_device> device, libusb_device_handle* handle)
      : device_(std::move(device)), handle_(handle) {}
  [[nodiscard]] UsbFault FindEndpoints();
  [[nodiscard]] UsbFault Claim();
  Moved Move(std::uint8_t endpoint, std::uint8_t* bytes, std::size_t size, unsigned ms);

  std::shared_ptr<libusb_device> device_;
  libusb_device_handle* handle_;
  bool claimed_ = false;
  std::uint8_t in_ = 0;
  std::uint8_t out_ = 0;
  std::size_t packetSize_ = 0;
};

}  // namespace morvane::bridges
