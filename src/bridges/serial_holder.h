#pragma once

#include <optional>
#include <string>

namespace morvane::bridges {

/// The serial device that the system's own driver makes of the bridge at `place` ("1-2.3"), if a
/// program has it open: "/dev/ttyUSB0". Of the programs of other users only the administrator
/// sees that. The device itself is not touched: that would move its control lines.
[[nodiscard]] std::optional<std::string> SerialDeviceInUse(const std::string& place);

}  // namespace morvane::bridges
