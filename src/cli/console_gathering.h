#pragma once

#include "maintenance/service_gathering.h"
#include "platform/console/progress_line.h"

namespace morvane::cli {

/// The window `Service_file` on the terminal: how far the pictures have come.
class ConsoleGathering final : public maintenance::ServiceFileView {
 public:
  ConsoleGathering(Terminal& terminal, const maintenance::ServiceGathering& gathering)
      : progress_(terminal), gathering_(gathering) {}
  ConsoleGathering(const ConsoleGathering&) = delete;
  ConsoleGathering& operator=(const ConsoleGathering&) = delete;
  ~ConsoleGathering() override { progress_.Show(""); }

  void ShowGathering() override {
    progress_.Show("Service file: " + std::to_string(gathering_.ProgressBar1()) + " %");
  }

 private:
  ProgressLine progress_;
  const maintenance::ServiceGathering& gathering_;
};

}  // namespace morvane::cli
