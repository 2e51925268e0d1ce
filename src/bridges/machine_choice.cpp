#include "bridges/machine_choice.h"

#include "bridges/empty_bus.h"
#include "bridges/pack_file.h"
#include "bridges/serial_bridge.h"
#include "simulator/options.h"
#include "simulator/simulated_machine.h"

namespace morvane::bridges {
namespace {

constexpr std::string_view kUsb = "usb";
constexpr std::string_view kSerial = "serial:";
constexpr std::string_view kSimulated = "simulated";

MachineChoice NoMachine(std::string error) { return {nullptr, nullptr, std::move(error)}; }

/// What is wrong with the file of `pack=`. A text of several keys behind it is a mistake that is
/// easily made.
std::string PackError(const std::string& path, const std::string& error) {
  const bool hasKeys = path.find(',') != std::string::npos;
  return "simulated machine: pack \"" + path + "\": " + error +
         (hasKeys ? " (pack= stands last: the rest of the text is its path)" : "");
}

MachineChoice ChooseSimulated(const std::string& text, Clock& clock) {
  simulator::Options options;
  if (auto error = simulator::ParseOptions(text, options)) return NoMachine(*error);
  std::vector<Board> boards;
  if (!options.Pack.empty()) {
    if (auto error = ReadPackFile(options.Pack, boards)) {
      return NoMachine(PackError(options.Pack, *error));
    }
  }
  auto machine = std::make_unique<simulator::SimulatedMachine>(options, clock);
  machine->LayBoards(std::move(boards));
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
  return NoMachine("unknown machine \"" + text +
                   "\": usb, simulated[,key=value...] or serial:PATH");
}

}  // namespace morvane::bridges
