#include "cli/console_firmware.h"

#include <chrono>

#include "machine/run_history.h"

namespace morvane::cli {

using maintenance::FirmwareDownload;

ConsoleFirmware::ConsoleFirmware(Terminal& terminal, const Clock& clock,
                                 const FirmwareDownload& download,
                                 std::optional<DownloadOutcome>& outcome)
    : terminal_(terminal),
      clock_(clock),
      line_(terminal),
      download_(download),
      progress_(download),
      outcome_(outcome) {
  const maintenance::FirmwareVersion version = download.File().Version();
  terminal_.Error("Firmware file: version " + TextOf(version) +
                  "\nIn the machine: " + InMachine(download.TheMachine(), version) + "\n");
}

ConsoleFirmware::~ConsoleFirmware() {
  line_.Show("");
  outcome_ = DownloadOutcome{download_.Result(), download_.File().Version()};
  TellErrors();
  if (!download_.Fault().empty()) terminal_.Error(download_.Fault() + ".\n");
  const bool well = outcome_->Known == FirmwareDownload::Outcome::kDone;
  if (!well || download_.ProgErrors() > 0) terminal_.Error(progress_.Doing() + "\n");
}

void ConsoleFirmware::TellErrors() {
  if (download_.CommErrors() + download_.ProgErrors() == 0) return;
  terminal_.Error("Frames: " + std::to_string(download_.FramesCount()) +
                  ", Sum: " + std::to_string(download_.SumErrors()) +
                  ", Comm: " + std::to_string(download_.CommErrors()) +
                  ", Prog: " + std::to_string(download_.ProgErrors()) + "\n");
}

void ConsoleFirmware::ShowDownload() {
  const double now = std::chrono::duration<double>(clock_.Elapsed()).count();
  if (progress_.Take(now)) line_.Show(progress_.Ended() ? "" : Line());
}

std::string ConsoleFirmware::Line() const {
  std::string line = "Block " + std::to_string(download_.BlocksSent()) + " of " +
                     std::to_string(download_.Blocks()) + ", " +
                     std::to_string(download_.Download_bar()) + " %";
  if (const auto seconds = progress_.SecondsLeft()) line += ", " + machine::About(*seconds);
  return line;
}

}  // namespace morvane::cli
