#pragma once

#include <string>
#include <vector>

#include "simulator/line/paced_line.h"

namespace morvane {

/// A machine that is to be served.
struct ServedKind {
  std::string Machine = "simulated";
  simulator::Pace Pace = simulator::Pace::kWire;
  std::string Link;   ///< where a link to the device is to stand; empty: none
  std::string Trace;  ///< the file that hears what passes; empty: none
  bool TraceWithoutHands = false;
};

/// The command line of `morvane-machine`.
struct MachineArguments {
  std::vector<ServedKind> Machines{1};  ///< one at least
  std::string Help;                     ///< not empty: to be shown, and nothing else is asked for
  std::string Error;                    ///< not empty: wrong usage, and why
};

/// `words` without the program's name.
[[nodiscard]] MachineArguments ParseMachineArguments(const std::vector<std::string>& words);

/// One of these files that is there twice, by whatever name; empty without one. An empty name is no
/// file.
[[nodiscard]] std::string NamedTwice(const std::vector<std::string>& files);

}  // namespace morvane
