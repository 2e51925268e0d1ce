#include "cli/maintain_calibrate_command.h"

#include <memory>

#include "cli/console_calibration.h"
#include "cli/console_service.h"
#include "cli/service_lines.h"
#include "maintenance/calibration_command.h"

namespace morvane::cli {
namespace {

using maintenance::Maintenance;
using maintenance::Parameter;
using maintenance::ParameterBoxes;

class CalibrationService final : public ConsoleService {
 public:
  CalibrationService(Maintenance& console, Workplace& place, bool& done)
      : ConsoleService(console), place_(place), done_(done) {}

  std::unique_ptr<maintenance::BoardCalibrationView> OpenBoardCalibration(
      maintenance::BoardCalibration& calibration) override {
    return std::make_unique<ConsoleCalibration>(place_.Screen, calibration, recommended_);
  }

 private:
  void Known() override {
    if (HasFirmware()) {
      const ParameterBoxes before = console_.Boxes();
      console_.Calibrate_Board_Switch();
      if (!console_.LinkFailed()) done_ = IsKept(before);
    } else {
      SayNoFirmware(place_.Screen);
    }
    console_.Exit();
  }
  /// What was written has been read back already.
  bool IsKept(const ParameterBoxes& before) {
    if (!recommended_) return Say("Nothing is calibrated.\n");
    if (*recommended_ == 0) {
      return Say(
          "Board_Sen stays as it is. Until the machine starts anew, its switch works with what was "
          "tried last.\n");
    }
    ParameterBoxes wanted = before;
    wanted.ClampThresholds();  // as every write does
    wanted.Box(Parameter::Board_Sen).Put(*recommended_);
    place_.Screen.Out(
        TextOf(ServiceLines{{"Board_Sen", console_.Boxes().Box(Parameter::Board_Sen).Text()}}));
    return console_.Boxes().DiffersFrom(wanted).empty();
  }
  bool Say(const std::string& text) {
    place_.Screen.Error(text);
    return false;
  }

  Workplace& place_;
  bool& done_;
  std::optional<int> recommended_;  ///< by a calibration that was begun
};

}  // namespace

MaintainCalibrateOptions ReadMaintainCalibrateOptions(OptionReader& given) {
  return {.Yes = given.Has("yes")};
}

ExitStatus MaintainCalibrate(Job& job, const MaintainCalibrateOptions& options) {
  if (options.Yes) job.Place.Operator.PressOk(maintenance::kCalibrationCaption);
  bool done = false;
  Serve(job, std::nullopt, [&](Maintenance& console) {
    return std::make_unique<CalibrationService>(console, job.Place, done);
  });
  // What the boxes before it have said is not the end of it.
  if (!done) TellBreak(job, job.Place.Operator.BoxesShown());
  return done ? kDone : kFailed;
}

constinit const Command kMaintainCalibrateCommand{
    .Name = "maintain calibrate",
    .Summary =
        "Finds at which sensitivity the board switch loses the board that is in the machine, and "
        "has the machine keep what is recommended. The exit status is 0 only when the machine "
        "holds that; otherwise, and when it is interrupted, Board_Sen stays as it is, unless the "
        "link was lost while it was written.",
    .Prepare = TaskOf<ReadMaintainCalibrateOptions, MaintainCalibrate>};

}  // namespace morvane::cli
