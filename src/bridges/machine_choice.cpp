#include "bridges/machine_choice.h"

#include "bridges/empty_bus.h"
#include "bridges/serial_bridge.h"
#include "platform/files.h"
#include "simulator/options.h"
#include "simulator/simulated_machine.h"

namespace morvane::bridges {
namespace {

constexpr std::string_view kUsb = "usb";
constexpr std::string_view kSerial = "serial:";
constexpr std::string_view kSimulated = "simulated";

MachineChoice ChooseSimulated(const std::string& text, Clock& clock) {
  simulator::Options options;
  if (auto error = simulator::ParseOptions(text, options)) return {nullptr, nullptr, *error};
  auto machine = std::make_unique<simulator::SimulatedMachine>(options, clock);
  auto* simulated = machine.get();
  return {std::move(machine), simulated, ""};
}

}  // namespace

MachineChoice ChooseMachine(const std::string& text, Clock& clock) {
  if (text == kUsb) return {std::make_unique<EmptyBus>(), nullptr, ""};
  if (text.starts_with(kSimulated)) return ChooseSimulated(text, clock);
  if (text.starts_with(kSerial) && text.size() > kSerial.size()) {
    return {std::make_unique<SerialBridge>(text.substr(kSerial.size())), nullptr, ""};
  }
  return {nullptr, nullptr,
          "unknown machine \"" + text + "\": usb, simulated[,key=value...] or serial:PATH"};
}

}  // namespace morvane::bridges
