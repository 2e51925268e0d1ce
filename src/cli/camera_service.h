#pragma once

#include <string>

#include "cli/console_service.h"
#include "platform/console/progress_line.h"

namespace morvane::cli {

/// The service console of a command that works with the camera's pictures: it has the camera lit,
/// does its work and leaves. What keeps it from it has been told; `done` then stays as it was.
class CameraService : public ConsoleService {
 public:
  void ShowPicture() final;

 protected:
  CameraService(maintenance::Maintenance& console, Job& job, bool& done)
      : ConsoleService(console), job_(job), progress_(job.Place.Screen), done_(done) {}

  /// What is done once the camera has light and power. False: it has not been, which has been told.
  virtual bool Work() = 0;

  /// Each false: the link is lost or somebody wants to leave.
  [[nodiscard]] bool Capture();
  /// Fetches what is in the machine's buffer and writes the whole of it to `out`. False also when
  /// it cannot be written, which has been told.
  [[nodiscard]] bool Fetch(const std::string& out);

  Job& job_;

 private:
  void Known() final;
  void Polled() final;

  ProgressLine progress_;
  bool& done_;
  int polls_ = 0;
  int lines_ = 0;  ///< of the picture that have come
};

/// Whether a picture can be written to `out`, asked before the machine is. False: the operator has
/// been told, or does not want what is there replaced.
[[nodiscard]] bool MayWritePicture(Job& job, const std::string& out);
/// Writes it. False: it cannot be written, which has been told.
[[nodiscard]] bool WritePng(Job& job, const std::string& out, const std::string& png);

}  // namespace morvane::cli
