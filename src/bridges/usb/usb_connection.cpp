#include "bridges/usb/usb_connection.h"

#include <libusb.h>

#include <algorithm>
#include <array>

namespace morvane::bridges {
namespace {

/// A chip answers within a few.
constexpr unsigned kControlMs = 300;

bool IsBulk(const libusb_endpoint_descriptor& endpoint) {
  return (endpoint.bmAttributes & LIBUSB_TRANSFER_TYPE_MASK) == LIBUSB_TRANSFER_TYPE_BULK;
}

bool IsIn(const libusb_endpoint_descriptor& endpoint) {
  return (endpoint.bEndpointAddress & LIBUSB_ENDPOINT_DIR_MASK) == LIBUSB_ENDPOINT_IN;
}

/// The bits above say how often a faster bus asks.
std::size_t PacketSizeOf(const libusb_endpoint_descriptor& endpoint) {
  return endpoint.wMaxPacketSize & 0x7FFU;
}

std::span<const libusb_endpoint_descriptor> EndpointsOf(const libusb_config_descriptor& config) {
  if (config.bNumInterfaces <= chip::kInterface) return {};
  const libusb_interface& interface = config.interface[chip::kInterface];
  if (interface.num_altsetting < 1) return {};
  return {interface.altsetting->endpoint, interface.altsetting->bNumEndpoints};
}

}  // namespace

std::unique_ptr<UsbConnection> UsbConnection::Make(const UsbFound& device, UsbFault& fault) {
  libusb_device_handle* handle = nullptr;
  fault = FaultOfOpening(libusb_open(device.Device.get(), &handle));
  if (fault != UsbFault::kNone) return nullptr;
  std::unique_ptr<UsbConnection> made(new UsbConnection(device.Device, handle));
  fault = made->FindEndpoints();
  if (fault == UsbFault::kNone) fault = made->Claim();
  return fault == UsbFault::kNone ? std::move(made) : nullptr;
}

UsbConnection::~UsbConnection() {
  if (claimed_) libusb_release_interface(handle_, chip::kInterface);
  libusb_close(handle_);
}

UsbFault UsbConnection::FindEndpoints() {
  libusb_config_descriptor* config = nullptr;
  const int status = libusb_get_active_config_descriptor(device_.get(), &config);
  if (status != LIBUSB_SUCCESS) return FaultOf(status);
  for (const auto& endpoint : EndpointsOf(*config)) {
    if (!IsBulk(endpoint)) continue;
    (IsIn(endpoint) ? in_ : out_) = endpoint.bEndpointAddress;
    if (IsIn(endpoint)) packetSize_ = PacketSizeOf(endpoint);
  }
  libusb_free_config_descriptor(config);
  const bool fits = packetSize_ > 0 && packetSize_ <= kLongestPacket;
  return in_ != 0 && out_ != 0 && fits ? UsbFault::kNone : UsbFault::kOther;
}

UsbFault UsbConnection::Claim() {
  const bool driven = libusb_kernel_driver_active(handle_, chip::kInterface) == 1;
  // Told to, libusb gives the device to the system's driver behind us, also where that had none.
  libusb_set_auto_detach_kernel_driver(handle_, driven ? 1 : 0);
  const int status = libusb_claim_interface(handle_, chip::kInterface);
  claimed_ = status == LIBUSB_SUCCESS;
  // Releasing gives it back, but there is nothing to release.
  if (!claimed_ && driven) libusb_attach_kernel_driver(handle_, chip::kInterface);
  return FaultOf(status);
}

UsbFault UsbConnection::Tell(const ControlRequest& request) {
  auto data = request.Data;
  const int sent = libusb_control_transfer(handle_, request.Type, request.Code, request.Value,
                                           request.Index, data.data(), request.Length, kControlMs);
  if (sent < 0) return FaultOf(sent);
  return sent == request.Length ? UsbFault::kNone : UsbFault::kOther;
}

std::optional<std::uint8_t> UsbConnection::Ask(const ControlRequest& request) {
  auto data = request.Data;
  const int got = libusb_control_transfer(handle_, request.Type, request.Code, request.Value,
                                          request.Index, data.data(), request.Length, kControlMs);
  return got == 1 ? std::optional(data[0]) : std::nullopt;
}

UsbConnection::Moved UsbConnection::Move(std::uint8_t endpoint, std::uint8_t* bytes,
                                         std::size_t size, unsigned ms) {
  int count = 0;
  const int status =
      libusb_bulk_transfer(handle_, endpoint, bytes, static_cast<int>(size), &count, ms);
  return {FaultOf(status), static_cast<std::size_t>(count)};
}

UsbConnection::Moved UsbConnection::In(std::span<std::uint8_t> bytes, unsigned ms) {
  return Move(in_, bytes.data(), std::min(packetSize_, bytes.size()), ms);
}

UsbConnection::Moved UsbConnection::Out(std::span<const std::uint8_t> bytes, unsigned ms) {
  // libusb only reads what it sends.
  return Move(out_, const_cast<std::uint8_t*>(bytes.data()), bytes.size(), ms);
}

void UsbConnection::RestartIn() { libusb_clear_halt(handle_, in_); }
void UsbConnection::RestartOut() { libusb_clear_halt(handle_, out_); }

}  // namespace morvane::bridges
