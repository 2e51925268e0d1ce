#pragma once

#include "machine/machine.h"
#include "platform/console/console_ui.h"
#include "platform/console/terminal.h"
#include "program/program.h"

namespace morvane {
class ProcessStarter;
class UsbXpress;
}  // namespace morvane

namespace morvane::simulator {
class SimulatedMachine;
}

namespace morvane::cli {

/// Everything that a command works with; `main` makes it.
struct Workplace {
  Program& Prog;
  ConsoleUi& Operator;
  Terminal& Screen;
  UsbXpress& Usb;
  ProcessStarter& Processes;
  machine::MachineKind Kind = machine::MachineKind::kReal;
  simulator::SimulatedMachine* Simulated = nullptr;  ///< when it can be looked into
};

}  // namespace morvane::cli
