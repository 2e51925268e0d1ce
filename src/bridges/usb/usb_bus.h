#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

struct libusb_device;

namespace morvane::bridges {

/// Which devices are meant: without numbers those of the bridge chip, without a serial string any.
struct UsbWhich {
  std::optional<std::uint16_t> Vendor = {};
  std::optional<std::uint16_t> Product = {};
  std::string Serial = {};
};

/// How a request to a device ended.
enum class UsbFault : std::uint8_t {
  kNone,
  kTimedOut,
  kStalled,    ///< the device does not know the request, or its endpoint has stopped
  kGone,       ///< unplugged
  kNoRights,   ///< the system refuses it to this user
  kHeld,       ///< another program has it
  kDisturbed,  ///< on its way; the next may get through
  kOther,
};

/// Of a status of libusb.
[[nodiscard]] UsbFault FaultOf(int status);
/// Of that of an opening, in which nothing is transferred yet: what fails is the right to it, also
/// where another authority than the node's own rights says so, as in a container.
[[nodiscard]] UsbFault FaultOfOpening(int status);

/// A device at the bus. It can be opened as long as this lives, wherever the next search has got.
struct UsbFound {
  std::shared_ptr<libusb_device> Device;
  std::vector<std::uint8_t> Sockets;  ///< behind the number of its bus, one a hub
  std::string Place = {};             ///< "1-2.3": the same, as the system names it
  std::string Serial = {};            ///< empty when it has none, or did not tell it
  UsbFault Fault = UsbFault::kNone;   ///< why it did not
};

/// Whether libusb can be started at all.
[[nodiscard]] bool UsbStarts();

/// The devices with the numbers of `which`, whatever their serial string, in the order of their
/// sockets. Nothing when libusb can't be started.
[[nodiscard]] std::optional<std::vector<UsbFound>> FindUsb(const UsbWhich& which);

}  // namespace morvane::bridges
