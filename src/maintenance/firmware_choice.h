#pragma once

#include <optional>
#include <string>

#include "machine/machine.h"
#include "maintenance/firmware_file.h"
#include "program/program.h"

namespace morvane::maintenance {

/// The firmware that `machine` is to be loaded with: the file `path`, or, where it is empty, the
/// one that the operator picks. Nothing: he has picked none, or it does not fit, which he has been
/// told.
[[nodiscard]] std::optional<FirmwareFile> ChooseFirmware(Program& program,
                                                         const machine::Machine& machine,
                                                         std::string path);

}  // namespace morvane::maintenance
