#include "bridges/link_request.h"

#include "simulator/options.h"

namespace morvane::bridges {

std::string MachineForms() {
  std::string text;
  for (const MachineForm& form : kMachineForms) {
    if (!text.empty()) text += &form == &kMachineForms.back() ? " or " : ", ";
    text += std::string(form.Start) + std::string(form.Rest);
  }
  return text;
}

std::string MachineUsage(std::size_t indent) {
  const std::string next = "\n" + std::string(indent, ' ');
  return "usb (where none is named), usb:SERIAL, usb:VVVV:PPPP," + next +
         "serial:PATH, replay:FILE," + next + simulator::OptionsUsage(indent);
}

}  // namespace morvane::bridges
