#include "shell/maintenance_flow.h"

#include "machine/open_link.h"
#include "maintenance/maintenance.h"

namespace morvane::shell {

using maintenance::Maintenance;

void MaintenanceFlow(Program& program, machine::Machine& machine,
                     maintenance::PictureStore& pictures, maintenance::MaintenanceDialog& dialogs,
                     const std::string& firmware) {
  program.Status("Maintenance");
  if (machine::OpenLink(program, machine.Link, Maintenance::kLinkTimeoutMs)) {
    Maintenance console(program, machine, pictures);
    if (const auto window = dialogs.OpenMaintenance(console)) {
      console.Open(*window, firmware);
      program.Loop.RunUntil([&] { return console.Closed(); });
      console.Exit();
    } else {
      machine.Link.CloseLink();
      program.ShowMessage("      This program has no window for the service.      ", kOkCritical,
                          "Maintenance");
    }
  }
}

}  // namespace morvane::shell
