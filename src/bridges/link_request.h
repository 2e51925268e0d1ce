#pragma once

#include <cstddef>
#include <string>

namespace morvane::bridges {

/// The machine that is meant where none is named: the real one.
inline constexpr const char* kDefaultMachine = "usb";

/// What a command line says about the way to the machine.
struct LinkRequest {
  std::string Machine = kDefaultMachine;  ///< one of `kMachineForms`
  std::string Trace{};                    ///< the file that all that passes is noted in, or empty
  bool TraceWithoutHands = false;         ///< but not who has which card
};

/// The forms that the machine on a command line has: "usb, usb:SERIAL, ...".
inline constexpr const char* kMachineForms =
    "usb, usb:SERIAL, usb:VVVV:PPPP, serial:PATH, simulated[,key=value...] or replay:FILE";

/// The same with the keys of the simulated machine, for the person who has to write it: lines of
/// which all but the first stand behind `indent` blanks.
[[nodiscard]] std::string MachineUsage(std::size_t indent);

}  // namespace morvane::bridges
