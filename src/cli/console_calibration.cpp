#include "cli/console_calibration.h"

#include "cli/service_lines.h"

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
  terminal_.Out(TextOf(ServiceLines{{"SensOn", std::to_string(calibration_.SensOn())}}) +
                calibration_.Label3() + "\n");
}

}  // namespace morvane::cli
