#pragma once

#include <string>

#include "maintenance/read_service.h"
#include "program/program.h"

namespace morvane::shell {

/// `Read_Service_File`: a service file is shown, the one at `path`, or one that is asked for. It
/// needs no machine.
void ReadServiceFlow(Program& program, maintenance::ReadServiceDialog& dialogs,
                     const std::string& path);

}  // namespace morvane::shell
