#include "cli/console_service.h"

namespace morvane::cli {

void ConsoleService::ShowAll() {
  if (known_ || !console_.Controls().Download) return;
  known_ = true;
  Known();
}

void Serve(Job& job, std::optional<int> index, const ConsoleWindows::Service& service) {
  job.KeepsHistory = false;
  // Beside what is printed, which may be a backup.
  if (job.Place.Simulated != nullptr) job.Place.Screen.Error("Machine: simulated\n");
  job.Windows.ServeBy([&](maintenance::Maintenance& console) {
    console.KeepSelection(index);
    return service(console);
  });
  job.Shell.MenuMaintenance();
}

void SayNoFirmware(Terminal& terminal) {
  terminal.Error("The machine holds no firmware: it can only be loaded with one.\n");
}

}  // namespace morvane::cli
