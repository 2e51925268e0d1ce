#include "cli/console_service.h"

#include <utility>

#include "cli/machine_side.h"
#include "text/printable.h"

namespace morvane::cli {

void ConsoleService::ShowAll() {
  const bool known = console_.Controls().Download;
  if (std::exchange(known_, known) != known && known) Known();
}

void Serve(Job& job, std::optional<int> index, const ConsoleWindows::Service& service) {
  job.KeepsHistory = false;
  // Beside what is printed, which may be a backup.
  if (const std::string line = MachineLine(job.Place); !line.empty()) job.Place.Screen.Error(line);
  job.Windows.ServeBy([&](maintenance::Maintenance& console) {
    console.KeepSelection(index);
    return service(console);
  });
  job.Shell.MenuMaintenance();
}

std::optional<int> IndexIn(OptionReader& given) {
  const auto word = given.Choice(kIndexOption);
  if (!word) return std::nullopt;
  return *word == "standard" ? 0 : *word == "jumbo" ? 1 : 2;
}

void TellBreak(Job& job, int boxesBefore) {
  const bool told = job.Place.Operator.BoxesShown() != boxesBefore;
  if (job.Place.Prog.Loop.Quitting() && !told) job.Place.Screen.Error("Broken off.\n");
}

void SayWritten(Terminal& terminal, const maintenance::ServiceFileRun& run) {
  if (!run.Written.empty()) terminal.Out("Service_file: " + Printable(run.Written) + "\n");
}

void SayNoFirmware(Terminal& terminal) {
  terminal.Error("The machine holds no firmware: it can only be loaded with one.\n");
}

}  // namespace morvane::cli
