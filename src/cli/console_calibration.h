#pragma once

#include <optional>

#include "maintenance/board_calibration.h"
#include "platform/console/progress_line.h"

namespace morvane::cli {

/// The window `Board_calibration` on the terminal: the trial that it is at, and what each sweep has
/// come to.
class ConsoleCalibration final : public maintenance::BoardCalibrationView {
 public:
  /// `recommended` is filled when the calibration is over: what is to be kept, or 0.
  ConsoleCalibration(Terminal& terminal, const maintenance::BoardCalibration& calibration,
                     std::optional<int>& recommended)
      : terminal_(terminal),
        progress_(terminal),
        calibration_(calibration),
        recommended_(recommended) {}
  ~ConsoleCalibration() override;
  ConsoleCalibration(const ConsoleCalibration&) = delete;
  ConsoleCalibration& operator=(const ConsoleCalibration&) = delete;

  void ShowCalibration() override;

 private:
  void PrintSweeps();

  Terminal& terminal_;
  ProgressLine progress_;
  const maintenance::BoardCalibration& calibration_;
  std::optional<int>& recommended_;
};

}  // namespace morvane::cli
