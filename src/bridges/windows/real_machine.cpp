#include "bridges/real_machine.h"

#include "bridges/usb/usb_xpress_library.h"

// Its maker's driver has the machine, and makes no serial device of it.

namespace morvane::bridges {

RealMachine MachineAtUsb(const std::string& which) {
  if (!which.empty())
    return {nullptr, "usb:" + which + ": here the machine is chosen by its driver"};
  return {std::make_unique<UsbXpressLibrary>()};
}

RealMachine MachineAtSerial(const std::string& path) {
  return {nullptr, "serial:" + path + ": here the machine is reached by its driver, as usb"};
}

}  // namespace morvane::bridges
