#include "bridges/real_machine.h"

#include "bridges/usb/usb_xpress_library.h"

// Its maker's driver has the machine, and makes no serial device of it.

namespace morvane::bridges {
namespace {

constexpr const char* kUseUsb = ": on Windows its maker's driver has the machine; use usb";

}  // namespace

RealMachine MachineAtUsb(const std::string& which) {
  if (!which.empty()) return {nullptr, "usb:" + which + kUseUsb};
  return {std::make_unique<UsbXpressLibrary>()};
}

RealMachine MachineAtSerial(const std::string& path) {
  return {nullptr, "serial:" + path + kUseUsb};
}

}  // namespace morvane::bridges
