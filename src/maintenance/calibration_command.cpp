#include "maintenance/calibration_command.h"

#include "maintenance/board_calibration.h"
#include "text/box_text.h"
#include "text/text.h"

namespace morvane::maintenance {

std::string WhyNoCalibration(const machine::Machine& machine) {
  if (!machine.HasHardware(wire::IdentityReply::kOpticalBoardSwitch)) {
    return "The machine has no optical board switch.";
  }
  if (Passes(machine, kCalibrationGate)) return "";
  return "Calibration requires firmware 2." + Hex2(kCalibrationGate.Minor) +
         " or later. The machine has " + machine.FirmwareInHex() + ".";
}

/// After anything but a Yes the switch goes on with the value tried last: required.
void CalibrationCommand::Run() {
  if (!CanDo() || !BoardIsIn() || !parameters_.ReadOver()) return;
  const int recommended = Calibrate();
  if (recommended == 0) return;
  parameters_.Boxes.Box(Parameter::Board_Sen).Put(recommended);
  parameters_.Write(ParameterBlock::Mode::kUpdate);
}

bool CalibrationCommand::CanDo() {
  const std::string whyNot = WhyNoCalibration(machine_);
  if (!whyNot.empty()) {
    program_.ShowMessage("      " + whyNot + "      ", kOkCritical, kCalibrationCaption);
  }
  return whyNot.empty();
}

bool CalibrationCommand::BoardIsIn() {
  return program_.Ask(program_.Texts.Msg125, kOkCancel, kCalibrationCaption) == kOk;
}

int CalibrationCommand::Calibrate() {
  BoardCalibration calibration(program_, link_, [this] { return host_.Leaving(); });
  const auto window = host_.View().OpenBoardCalibration(calibration);
  calibration.Run(*window);
  return calibration.RecommendedSensitivity();
}

}  // namespace morvane::maintenance
