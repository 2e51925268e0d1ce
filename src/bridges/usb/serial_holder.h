#pragma once

#include <optional>
#include <string>

namespace morvane::bridges {

/// The name of a program that has the device file `device` open, by whatever path; not of this one.
/// Of the programs of other users only the administrator sees that. The device itself is not
/// touched: that would move its control lines.
[[nodiscard]] std::optional<std::string> ProgramHolding(const std::string& device);

struct SerialUse {
  std::string Device;   ///< "/dev/ttyUSB0"
  std::string Program;  ///< which has it open
};

/// Of the serial device that the system's own driver makes of the bridge at `place` ("1-2.3"), if a
/// program uses it.
[[nodiscard]] std::optional<SerialUse> SerialUseAt(const std::string& place);

}  // namespace morvane::bridges
