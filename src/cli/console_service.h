#pragma once

#include <string>

#include "cli/job.h"
#include "cli/option_reader.h"
#include "maintenance/maintenance.h"

namespace morvane::cli {

/// The service console without a window. What it does, it does once the machine is known, or at a
/// poll.
class ConsoleService : public maintenance::MaintenanceView {
 public:
  void ShowReadings() final { Polled(); }
  void ShowAll() final;
  void ShowPicture() override {}
  void Magnify() final {}
  void ShowAdvance(maintenance::AdvanceForm& /*form*/) override {}
  void Close() override {}

 protected:
  explicit ConsoleService(maintenance::Maintenance& console) : console_(console) {}

  /// The machine has said what it is; again where it has been started anew.
  virtual void Known() = 0;
  virtual void Polled() {}

  /// It has a firmware that answers for more than itself.
  [[nodiscard]] bool HasFirmware() const { return console_.Controls().MachineKnown; }
  maintenance::Maintenance& console_;

 private:
  bool known_ = false;
};

/// Brings up the console of `job`, which `service` looks at, until it is left. The selection of
/// cards that is stored stays as it is; `index` as in `Maintenance::KeepSelection`.
void Serve(Job& job, std::optional<int> index, const ConsoleWindows::Service& service);

/// Whose record is meant, `CardSettings::Index`.
inline constexpr Option kIndexOption{"index", "standard|jumbo|small",
                                     "whose record is meant; otherwise that of the settings"};
[[nodiscard]] std::optional<int> IndexIn(OptionReader& given);

/// Says that the command was interrupted, unless there have been boxes since `boxesBefore`.
void TellBreak(Job& job, int boxesBefore);

/// The path of the service file that was made, on the output; without one, nothing.
void SayWritten(Terminal& terminal, const maintenance::ServiceFileRun& run);

/// What is told where a command needs more than a machine without firmware can say.
void SayNoFirmware(Terminal& terminal);

}  // namespace morvane::cli
