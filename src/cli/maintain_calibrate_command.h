#pragma once

#include "cli/job.h"
#include "cli/option_reader.h"

namespace morvane::cli {

/// What `maintain calibrate` takes.
struct MaintainCalibrateOptions {
  bool Yes = false;
};

[[nodiscard]] MaintainCalibrateOptions ReadMaintainCalibrateOptions(OptionReader& given);

/// The calibration of the board switch, with its questions on the terminal. Done only when the
/// machine holds what was recommended.
ExitStatus MaintainCalibrate(Job& job, const MaintainCalibrateOptions& options);

extern const Command kMaintainCalibrateCommand;

}  // namespace morvane::cli
