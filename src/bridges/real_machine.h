#pragma once

#include <memory>
#include <string>

#include "platform/usb_xpress.h"

namespace morvane::bridges {

/// A machine of metal, as this system reaches it.
struct RealMachine {
  std::unique_ptr<UsbXpress> Usb;
  std::string Error{};  ///< why `Usb` is null; empty: the words name no machine
};

/// The one at a USB socket. `which` tells one of several, and is empty where it does not matter.
[[nodiscard]] RealMachine MachineAtUsb(const std::string& which);
/// The one behind the serial device `path`.
[[nodiscard]] RealMachine MachineAtSerial(const std::string& path);

}  // namespace morvane::bridges
