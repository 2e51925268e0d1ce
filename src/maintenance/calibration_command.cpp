#include "maintenance/calibration_command.h"

namespace morvane::maintenance {

void CalibrationCommand::Run() {}

}  // namespace morvane::maintenance
