#pragma once

#include <string>

#include "machine/machine.h"
#include "maintenance/maintenance_view.h"
#include "maintenance/picture_store.h"
#include "program/program.h"

namespace morvane::shell {

/// `cmdMaintenance`: the service console, from opening the link until its window has gone.
/// `pictures` and `firmware` as in `Maintenance`.
void MaintenanceFlow(Program& program, machine::Machine& machine,
                     maintenance::PictureStore& pictures, maintenance::MaintenanceDialog& dialogs,
                     const std::string& firmware);

}  // namespace morvane::shell
