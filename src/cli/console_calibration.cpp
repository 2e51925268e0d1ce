#include "cli/console_calibration.h"

namespace morvane::cli {

ConsoleCalibration::~ConsoleCalibration() {
  progress_.Show("");
  recommended_ = calibration_.RecommendedSensitivity();
}

void ConsoleCalibration::ShowCalibration() {
  if (calibration_.Over()) {
    PrintSweeps();
  } else {
    progress_.Show(calibration_.Label1() + "  " + std::to_string(calibration_.Progress()) + " %");
  }
}

void ConsoleCalibration::PrintSweeps() {
  progress_.Show("");
  terminal_.Out(calibration_.Label2() + "\n" + calibration_.Label3() + "\n");
  if (calibration_.NeverSeen()) {
    terminal_.Error("The switch has seen no board at any sensitivity. Is one in the slot?\n");
  }
}

}  // namespace morvane::cli
