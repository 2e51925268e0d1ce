#include "cli/maintain_service_file_command.h"

#include <memory>

#include "cli/console_gathering.h"
#include "cli/console_service.h"
#include "maintenance/service_file_command.h"
#include "text/printable.h"

namespace morvane::cli {
namespace {

using maintenance::Maintenance;

class ServiceFileService final : public ConsoleService {
 public:
  ServiceFileService(Maintenance& console, Terminal& terminal, std::string& written)
      : ConsoleService(console), terminal_(terminal), written_(written) {}

  std::unique_ptr<maintenance::ServiceFileView> OpenServiceFile(
      maintenance::ServiceGathering& gathering) override {
    return std::make_unique<ConsoleGathering>(terminal_, gathering);
  }

 private:
  void Known() override {
    if (HasFirmware()) {
      console_.Email();
      written_ = console_.ServiceFiles().Written;
    } else {
      SayNoFirmware(terminal_);
    }
    console_.Exit();
  }

  Terminal& terminal_;
  std::string& written_;
};

}  // namespace

MaintainServiceFileOptions ReadMaintainServiceFileOptions(OptionReader& given) {
  return {.Yes = given.Has("yes")};
}

ExitStatus MaintainServiceFile(Job& job, const MaintainServiceFileOptions& options) {
  if (options.Yes) job.Place.Operator.PressOk(maintenance::kServiceFileCaption);
  std::string written;
  Serve(job, std::nullopt, [&](Maintenance& console) {
    return std::make_unique<ServiceFileService>(console, job.Place.Screen, written);
  });
  if (written.empty()) {
    job.Place.Screen.Error("No service file was made.\n");
    return kFailed;
  }
  job.Place.Screen.Out("Service_file: " + Printable(written) + "\n");
  return kDone;
}

constinit const Command kMaintainServiceFileCommand{
    .Name = "maintain service-file",
    .Summary =
        "Gathers what a technician at a distance needs, the pictures of the card in front of the "
        "camera included, into one file in the data folder, and shows its name.",
    .Prepare = TaskOf<ReadMaintainServiceFileOptions, MaintainServiceFile>};

}  // namespace morvane::cli
