#pragma once

#include <memory>
#include <string>

#include "platform/clock.h"
#include "platform/usb_xpress.h"

namespace morvane::simulator {
class SimulatedMachine;
}

namespace morvane::bridges {

/// The way to the machine that `--machine` names, or why there is none.
struct MachineChoice {
  std::unique_ptr<UsbXpress> Usb;
  simulator::SimulatedMachine* Simulated = nullptr;  ///< `Usb`, when it is the simulated machine
  std::string Error;                                 ///< not empty: `Usb` is null
};

/// Reads the file of the simulated machine's `pack=`.
/// "usb", "simulated[,key=value...]" or "serial:PATH".
[[nodiscard]] MachineChoice ChooseMachine(const std::string& text, Clock& clock);

/// The machine that is meant where none is named: the real one.
inline constexpr const char* kDefaultMachine = "usb";

}  // namespace morvane::bridges
