#pragma once

#include <optional>

#include "maintenance/firmware_progress.h"
#include "platform/clock.h"
#include "platform/console/progress_line.h"

namespace morvane::cli {

/// What has come of a download.
struct DownloadOutcome {
  maintenance::FirmwareDownload::Outcome Known;
  maintenance::FirmwareVersion Version;  ///< of the file
};

/// The window `Firmware` on the terminal: how far the transfer has come, and in the end what is
/// known of the machine unless that is all well.
class ConsoleFirmware final : public maintenance::FirmwareView {
 public:
  /// `outcome` is filled when the transfer is over.
  ConsoleFirmware(Terminal& terminal, const Clock& clock,
                  const maintenance::FirmwareDownload& download,
                  std::optional<DownloadOutcome>& outcome);
  ~ConsoleFirmware() override;
  ConsoleFirmware(const ConsoleFirmware&) = delete;
  ConsoleFirmware& operator=(const ConsoleFirmware&) = delete;

  void ShowDownload() override;

 private:
  [[nodiscard]] std::string Line() const;
  void TellErrors();

  Terminal& terminal_;
  const Clock& clock_;
  ProgressLine line_;
  const maintenance::FirmwareDownload& download_;
  maintenance::FirmwareProgress progress_;
  std::optional<DownloadOutcome>& outcome_;
};

}  // namespace morvane::cli
