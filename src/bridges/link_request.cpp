#include "bridges/link_request.h"

#include "simulator/options.h"

namespace morvane::bridges {

std::string MachineUsage(std::size_t indent) {
  const std::string next = "\n" + std::string(indent, ' ');
  return "usb (where none is named), usb:SERIAL, usb:VVVV:PPPP," + next +
         "serial:PATH, replay:FILE," + next + simulator::OptionsUsage(indent);
}

}  // namespace morvane::bridges
