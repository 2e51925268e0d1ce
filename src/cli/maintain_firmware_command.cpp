#include "cli/maintain_firmware_command.h"

#include <array>
#include <memory>

#include "cli/console_firmware.h"
#include "cli/console_service.h"

namespace morvane::cli {
namespace {

using maintenance::FirmwareDownload;
using maintenance::FirmwareVersion;
using maintenance::Maintenance;

class FirmwareService final : public ConsoleService {
 public:
  FirmwareService(Maintenance& console, Workplace& place, const std::string& path, bool& done)
      : ConsoleService(console), place_(place), path_(path), done_(done) {}

  std::unique_ptr<maintenance::FirmwareView> OpenFirmware(FirmwareDownload& download) override {
    return std::make_unique<ConsoleFirmware>(place_.Screen, place_.Prog.Time, download, outcome_);
  }

 private:
  /// At the first contact, and again when the machine has started what it was sent.
  void Known() override {
    if (!asked_) {
      asked_ = true;
      console_.Download(path_);
      if (!outcome_) console_.Exit();  // the file was refused
      return;
    }
    done_ = HoldsIt();
    console_.Exit();
  }
  bool HoldsIt() {
    if (!maintenance::HasFirmware(console_.TheMachine())) {
      SayNoFirmware(place_.Screen);
      return false;
    }
    place_.Screen.Out("Soft_ver: " + console_.TheIdentity().Soft_ver + "\n");
    if (outcome_->Known != FirmwareDownload::Outcome::kDone) return false;
    const auto& held = console_.TheMachine().Version;
    if (FirmwareVersion{held.FirmwareMajor, held.FirmwareMinor} == outcome_->Version) return true;
    place_.Screen.Error("The file holds version " + TextOf(outcome_->Version) + ".\n");
    return false;
  }

  Workplace& place_;
  const std::string& path_;
  bool& done_;
  bool asked_ = false;
  std::optional<DownloadOutcome> outcome_;  ///< of a transfer that was begun
};

constexpr std::array kOperands{Operand{"FILE.adc", "the firmware"}};

}  // namespace

MaintainFirmwareOptions ReadMaintainFirmwareOptions(OptionReader& given) {
  return {.File = given.Path(0)};
}

ExitStatus MaintainFirmware(Job& job, const MaintainFirmwareOptions& options) {
  bool done = false;
  Serve(job, std::nullopt, [&](Maintenance& console) {
    return std::make_unique<FirmwareService>(console, job.Place, options.File, done);
  });
  // What the boxes before it have said is not the end of it.
  if (!done) TellBreak(job, job.Place.Operator.BoxesShown());
  return done ? kDone : kFailed;
}

constinit const Command kMaintainFirmwareCommand{
    .Name = "maintain firmware",
    .Operands = kOperands,
    .Summary =
        "Loads the machine with a firmware. The exit status is 0 only when the machine has started "
        "and says that it holds that version. A download that ends early leaves the machine "
        "without firmware: it can be loaded again.",
    .Prepare = TaskOf<ReadMaintainFirmwareOptions, MaintainFirmware>};

}  // namespace morvane::cli
