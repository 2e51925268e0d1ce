#include "bridges/machine_choice.h"

#include "bridges/empty_bus.h"
#include "bridges/serial_bridge.h"
#include "bridges/simulated_choice.h"
#include "simulator/simulated_machine.h"

namespace morvane::bridges {
namespace {

constexpr std::string_view kSerial = "serial:";
constexpr std::string_view kSimulated = "simulated";

MachineChoice NoMachine(std::string error) {
  MachineChoice none;
  none.Error = std::move(error);
  return none;
}

MachineChoice RealMachine(std::unique_ptr<UsbXpress> usb) {
  MachineChoice choice;
  choice.Usb = std::move(usb);
  return choice;
}

MachineChoice MakeSimulated(const std::string& text, Clock& clock) {
  SimulatedChoice simulated = ChooseSimulated(text);
  if (!simulated.Error.empty()) return NoMachine(std::move(simulated.Error));
  auto machine = std::make_unique<simulator::SimulatedMachine>(simulated.Kind, clock);
  machine->LayBoards(std::move(simulated.Boards));
  MachineChoice choice;
  choice.Simulated = machine.get();
  choice.Kind = machine::MachineKind::kSimulated;
  choice.Usb = std::move(machine);
  return choice;
}

}  // namespace

MachineChoice ChooseMachine(const LinkRequest& request, Clock& clock) {
  const std::string& text = request.Machine;
  if (text == kDefaultMachine) return RealMachine(std::make_unique<EmptyBus>());
  if (text.starts_with(kSimulated)) return MakeSimulated(text, clock);
  if (text.starts_with(kSerial) && text.size() > kSerial.size()) {
    return RealMachine(std::make_unique<SerialBridge>(text.substr(kSerial.size())));
  }
  return NoMachine("unknown machine \"" + text + "\": " + kMachineForms);
}

std::string MachineChoice::Trouble() const {
  return Simulated != nullptr ? Simulated->Trouble() : "";
}

}  // namespace morvane::bridges
