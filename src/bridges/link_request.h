#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace morvane::bridges {

/// The machine that is meant where none is named: the real one.
inline constexpr const char* kDefaultMachine = "usb";

/// What a command line says about the way to the machine.
struct LinkRequest {
  std::string Machine = kDefaultMachine;  ///< one of `kMachineForms`
  std::string Trace{};                    ///< the file that all that passes is noted in, or empty
  bool TraceWithoutHands = false;         ///< but not who has which card
};

/// A form that the machine on a command line has.
struct MachineForm {
  std::string_view Start;  ///< as it is written
  std::string_view Rest;   ///< the word that stands for what follows; empty: nothing does
  std::string_view Means;
  bool OnWindows = true;  ///< where its maker's driver has the machine
};
inline constexpr std::array<MachineForm, 6> kMachineForms{{
    {"usb", "", "the machine at a USB socket; meant where none is named"},
    {"usb:", "SERIAL", "the one with this serial string, of several; not on Windows", false},
    {"usb:", "VVVV:PPPP",
     "a bridge chip with these numbers of maker and product, in hexadecimal; a serial string may "
     "stand behind another colon; not on Windows",
     false},
    {"serial:", "PATH",
     "the serial device that the operating system makes of the machine; not on Windows", false},
    {"simulated", "[,key=value...]", "a machine made of code"},
    {"replay:", "FILE", "what a trace has noted of another run"},
}};

/// "usb, usb:SERIAL, ..." with all forms that there are here.
[[nodiscard]] std::string MachineForms();

/// The same with the keys of the simulated machine, for the person who has to write it: lines of
/// which all but the first stand behind `indent` blanks.
[[nodiscard]] std::string MachineUsage(std::size_t indent);

}  // namespace morvane::bridges
