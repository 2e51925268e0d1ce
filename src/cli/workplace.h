#pragma once

#include <functional>

#include "cli/request.h"
#include "platform/console/console_ui.h"
#include "platform/console/terminal.h"
#include "shell/shell.h"

namespace morvane::simulator {
class SimulatedMachine;
}

namespace morvane::cli {

/// Exit statuses of the command line.
enum ExitStatus : int { kDone = 0, kFailed = 1, kWrongUsage = 2 };

/// Everything that a command works with; `main` makes it.
struct Workplace {
  Program& Prog;
  ConsoleUi& Operator;
  Terminal& Screen;
  UsbXpress& Usb;
  simulator::SimulatedMachine* Simulated = nullptr;  ///< when it can be looked into
  std::function<bool()> Interrupted;                 ///< Ctrl-C was pressed since it was last asked
};

/// The Save command with the request's path in place of its dialog; whether the set was saved.
[[nodiscard]] bool Save(Workplace& place, const Request& request, shell::Shell& shell);

}  // namespace morvane::cli
