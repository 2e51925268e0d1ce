#include "bridges/usb_bus.h"

#include <libusb.h>

#include <algorithm>
#include <array>
#include <span>

#include "bridges/bridge_chip.h"

namespace morvane::bridges {
namespace {

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

std::string PlaceOf(libusb_device* device) {
  std::array<std::uint8_t, 8> sockets{};
  const int count =
      libusb_get_port_numbers(device, sockets.data(), static_cast<int>(sockets.size()));
  std::string place = std::to_string(libusb_get_bus_number(device));
  for (int i = 0; i < count; ++i) {
    place += (i == 0 ? "-" : ".") + std::to_string(sockets[static_cast<std::size_t>(i)]);
  }
  return place;
}

std::string SerialOf(libusb_device_handle* handle, std::uint8_t number) {
  std::array<unsigned char, 256> text{};
  const int size = number == 0 ? 0
                               : libusb_get_string_descriptor_ascii(handle, number, text.data(),
                                                                    static_cast<int>(text.size()));
  return {text.begin(), text.begin() + std::max(size, 0)};
}

/// Opens the device for a moment: a program that has it does not stand in the way of that.
UsbFound Ask(std::shared_ptr<libusb_device> device, const libusb_device_descriptor& descriptor) {
  UsbFound found{.Device = std::move(device), .Place = "", .Serial = ""};
  found.Place = PlaceOf(found.Device.get());
  libusb_device_handle* handle = nullptr;
  const int opened = libusb_open(found.Device.get(), &handle);
  found.NoRights = FaultOf(opened) == UsbFault::kNoRights;
  if (opened != LIBUSB_SUCCESS) return found;
  found.Serial = SerialOf(handle, descriptor.iSerialNumber);
  libusb_close(handle);
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
    default:
      return UsbFault::kOther;
  }
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
  std::ranges::sort(all, {}, &UsbFound::Place);
  return all;
}

}  // namespace morvane::bridges
