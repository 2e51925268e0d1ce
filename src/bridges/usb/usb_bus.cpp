#include "bridges/usb/usb_bus.h"

#include <libusb.h>

#include <algorithm>
#include <array>
#include <span>
#include <utility>

#include "bridges/usb/bridge_chip.h"

namespace morvane::bridges {
namespace {

constexpr unsigned kStringMs = 300;
constexpr int kStringHead = 2;
/// The language that the chip's strings are in, and those of nearly every device.
constexpr std::uint16_t kEnglish = 0x0409;

using Context = std::shared_ptr<libusb_context>;

/// A new one sees the bus as it is now, whether or not the system tells of what comes and goes.
Context NewContext() {
  libusb_context* context = nullptr;
  if (libusb_init(&context) != LIBUSB_SUCCESS) return nullptr;
  return {context, libusb_exit};
}

/// All devices. Each keeps the context.
std::vector<std::shared_ptr<libusb_device>> DevicesOf(const Context& context) {
  libusb_device** list = nullptr;
  const auto count = libusb_get_device_list(context.get(), &list);
  std::vector<std::shared_ptr<libusb_device>> devices;
  for (libusb_device* device : std::span(list, count > 0 ? static_cast<std::size_t>(count) : 0)) {
    devices.emplace_back(device, [context](libusb_device* own) { libusb_unref_device(own); });
  }
  if (list != nullptr) libusb_free_device_list(list, 0);
  return devices;
}

bool HasNumbers(const libusb_device_descriptor& device, const UsbWhich& which) {
  if (device.idVendor != which.Vendor.value_or(chip::kVendor)) return false;
  if (which.Product) return device.idProduct == *which.Product;
  return std::ranges::find(chip::kProducts, device.idProduct) != chip::kProducts.end();
}

std::vector<std::uint8_t> SocketsOf(libusb_device* device) {
  std::array<std::uint8_t, 8> sockets{};
  const int count =
      libusb_get_port_numbers(device, sockets.data(), static_cast<int>(sockets.size()));
  std::vector<std::uint8_t> all{libusb_get_bus_number(device)};
  all.insert(all.end(), sockets.begin(), sockets.begin() + std::max(count, 0));
  return all;
}

std::string PlaceOf(std::span<const std::uint8_t> sockets) {
  std::string place = std::to_string(sockets.front());
  char separator = '-';
  for (const std::uint8_t socket : sockets.subspan(1)) {
    place += std::exchange(separator, '.') + std::to_string(socket);
  }
  return place;
}

/// Of a string descriptor: the part behind its head, in UTF-16.
std::string NarrowText(std::span<const unsigned char> wide) {
  std::string text;
  for (; wide.size() >= 2; wide = wide.subspan(2)) {
    text += wide[1] == 0 && wide[0] < 0x80 ? static_cast<char>(wide[0]) : '?';
  }
  return text;
}

/// One request: a device that does not answer must not hold up the search.
UsbFault ReadString(libusb_device_handle* handle, std::uint8_t number, std::string& text) {
  std::array<unsigned char, 255> string{};
  const auto which = static_cast<std::uint16_t>(LIBUSB_DT_STRING << 8 | number);
  const int size =
      libusb_control_transfer(handle, LIBUSB_ENDPOINT_IN, LIBUSB_REQUEST_GET_DESCRIPTOR, which,
                              kEnglish, string.data(), string.size(), kStringMs);
  if (size < 0) return FaultOf(size);
  if (size < kStringHead || string[1] != LIBUSB_DT_STRING) return UsbFault::kOther;
  const auto end = static_cast<std::size_t>(std::clamp(int{string[0]}, kStringHead, size));
  text = NarrowText(std::span(string).first(end).subspan(kStringHead));
  return UsbFault::kNone;
}

/// Opens the device for a moment: a program that has it does not stand in the way of that.
UsbFault ReadSerial(libusb_device* device, std::uint8_t number, std::string& text) {
  libusb_device_handle* handle = nullptr;
  const UsbFault opened = FaultOfOpening(libusb_open(device, &handle));
  if (opened != UsbFault::kNone) return opened;
  const UsbFault fault = number == 0 ? UsbFault::kNone : ReadString(handle, number, text);
  libusb_close(handle);
  return fault;
}

UsbFound Ask(std::shared_ptr<libusb_device> device, const libusb_device_descriptor& descriptor) {
  UsbFound found{.Device = std::move(device), .Sockets = {}};
  found.Sockets = SocketsOf(found.Device.get());
  found.Place = PlaceOf(found.Sockets);
  found.Fault = ReadSerial(found.Device.get(), descriptor.iSerialNumber, found.Serial);
  return found;
}

}  // namespace

UsbFault FaultOf(int status) {
  switch (status) {
    case LIBUSB_SUCCESS:
      return UsbFault::kNone;
    case LIBUSB_ERROR_TIMEOUT:
      return UsbFault::kTimedOut;
    case LIBUSB_ERROR_PIPE:
      return UsbFault::kStalled;
    case LIBUSB_ERROR_NO_DEVICE:
      return UsbFault::kGone;
    case LIBUSB_ERROR_ACCESS:
      return UsbFault::kNoRights;
    case LIBUSB_ERROR_BUSY:
      return UsbFault::kHeld;
    case LIBUSB_ERROR_IO:
    case LIBUSB_ERROR_OVERFLOW:
      return UsbFault::kDisturbed;
    default:
      return UsbFault::kOther;
  }
}

UsbFault FaultOfOpening(int status) {
  return status == LIBUSB_ERROR_IO ? UsbFault::kNoRights : FaultOf(status);
}

bool UsbStarts() { return NewContext() != nullptr; }

std::optional<std::vector<UsbFound>> FindUsb(const UsbWhich& which) {
  const Context context = NewContext();
  if (!context) return std::nullopt;
  std::vector<UsbFound> all;
  for (auto& device : DevicesOf(context)) {
    libusb_device_descriptor descriptor{};
    libusb_get_device_descriptor(device.get(), &descriptor);
    if (HasNumbers(descriptor, which)) all.push_back(Ask(std::move(device), descriptor));
  }
  std::erase_if(all, [](const UsbFound& found) { return found.Fault == UsbFault::kGone; });
  std::ranges::sort(all, {}, &UsbFound::Sockets);
  return all;
}

}  // namespace morvane::bridges
