#include "cli/maintain_service_file_command.h"

#include <memory>

#include "cli/console_gathering.h"
#include "cli/console_service.h"
#include "maintenance/service_file_command.h"

namespace morvane::cli {
namespace {

using maintenance::Maintenance;

class ServiceFileService final : public ConsoleService {
 public:
  ServiceFileService(Maintenance& console, Terminal& terminal, ExitStatus& status)
      : ConsoleService(console), terminal_(terminal), status_(status) {}

  std::unique_ptr<maintenance::ServiceFileView> OpenServiceFile(
      maintenance::ServiceGathering& gathering) override {
    return std::make_unique<ConsoleGathering>(terminal_, gathering);
  }

 private:
  void Known() override {
    if (HasFirmware()) {
      console_.Email();
      TellEnd();
    } else {
      SayNoFirmware(terminal_);
    }
    console_.Exit();
  }
  /// A link that was lost behind the file has left the machine's outputs on.
  void TellEnd() {
    if (console_.ServiceFiles().Written.empty()) {
      terminal_.Error("No service file was made.\n");
      return;
    }
    SayWritten(terminal_, console_.ServiceFiles());
    status_ = console_.LinkFailed() ? kPartly : kDone;
  }

  Terminal& terminal_;
  ExitStatus& status_;
};

}  // namespace

MaintainServiceFileOptions ReadMaintainServiceFileOptions(OptionReader& given) {
  return {.Yes = given.Has("yes")};
}

ExitStatus MaintainServiceFile(Job& job, const MaintainServiceFileOptions& options) {
  if (options.Yes) job.Place.Operator.PressOk(maintenance::kServiceFileCaption);
  ExitStatus status = kFailed;
  Serve(job, std::nullopt, [&](Maintenance& console) {
    return std::make_unique<ServiceFileService>(console, job.Place.Screen, status);
  });
  return status;
}

constinit const Command kMaintainServiceFileCommand{
    .Name = "maintain service-file",
    .Summary =
        "Gathers what a technician at a distance needs, the pictures of the card in front of the "
        "camera included, into one file in the data folder, and shows its name. The exit status is "
        "3 when the link was lost behind it, so that the machine's lights stay on.",
    .Prepare = TaskOf<ReadMaintainServiceFileOptions, MaintainServiceFile>};

}  // namespace morvane::cli
