#include "bridges/machine_choice.h"

#include "bridges/empty_bus.h"
#include "bridges/serial_bridge.h"
#include "bridges/simulated_choice.h"
#include "simulator/simulated_machine.h"

namespace morvane::bridges {
namespace {

constexpr std::string_view kUsb = "usb";
constexpr std::string_view kSerial = "serial:";
constexpr std::string_view kSimulated = "simulated";

MachineChoice NoMachine(std::string error) { return {nullptr, nullptr, std::move(error)}; }

MachineChoice MakeSimulated(const std::string& text, Clock& clock) {
  SimulatedChoice choice = ChooseSimulated(text);
  if (!choice.Error.empty()) return NoMachine(std::move(choice.Error));
  auto machine = std::make_unique<simulator::SimulatedMachine>(choice.Kind, clock);
  machine->LayBoards(std::move(choice.Boards));
  auto* simulated = machine.get();
  return {std::move(machine), simulated, ""};
}

}  // namespace

MachineChoice ChooseMachine(const std::string& text, Clock& clock) {
  if (text == kUsb) return {std::make_unique<EmptyBus>(), nullptr, ""};
  if (text.starts_with(kSimulated)) return MakeSimulated(text, clock);
  if (text.starts_with(kSerial) && text.size() > kSerial.size()) {
    return {std::make_unique<SerialBridge>(text.substr(kSerial.size())), nullptr, ""};
  }
  return NoMachine("unknown machine \"" + text +
                   "\": usb, simulated[,key=value...] or serial:PATH");
}

}  // namespace morvane::bridges
