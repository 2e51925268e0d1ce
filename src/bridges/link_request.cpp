#include "bridges/link_request.h"

#include "simulator/options.h"

namespace morvane::bridges {
namespace {

#ifdef _WIN32
constexpr bool kOnWindows = true;
#else
constexpr bool kOnWindows = false;
#endif

}  // namespace

std::string MachineForms() {
  std::string text;
  for (const MachineForm& form : kMachineForms) {
    if (kOnWindows && !form.OnWindows) continue;
    if (!text.empty()) text += &form == &kMachineForms.back() ? " or " : ", ";
    text += std::string(form.Start) + std::string(form.Rest);
  }
  return text;
}

std::string MachineUsage(std::size_t indent) {
  const std::string next = "\n" + std::string(indent, ' ');
  const std::string others =
      kOnWindows ? "" : "usb:SERIAL, usb:VVVV:PPPP," + next + "serial:PATH, ";
  return "usb (where none is named), " + others + "replay:FILE," + next +
         simulator::OptionsUsage(indent);
}

}  // namespace morvane::bridges
