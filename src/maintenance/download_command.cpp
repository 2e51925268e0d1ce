#include "maintenance/download_command.h"

#include "maintenance/firmware_choice.h"
#include "text/box_text.h"

namespace morvane::maintenance {
namespace {

/// Erasing flash takes the machine longer than an answer does.
constexpr std::int16_t kDownloadTimeoutMs = 2000;
constexpr std::int16_t kUsualTimeoutMs = 200;

}  // namespace

bool DownloadCommand::Run(const std::string& path, For whom) {
  machine_.Link.SetLinkTimeouts(kDownloadTimeoutMs);
  const auto firmware = ChooseFirmware(program_, machine_, path);
  if (firmware) Transfer(*firmware, whom);
  if (link_.LinkFailed()) return false;
  machine_.Link.SetLinkTimeouts(kUsualTimeoutMs);
  return firmware.has_value();
}

void DownloadCommand::Transfer(const FirmwareFile& firmware, For whom) {
  FirmwareDownload download(program_, link_, machine_, firmware,
                            [this] { return host_.Leaving(); });
  {
    const auto window = host_.View().OpenFirmware(download);
    download.Run(*window);
  }
  if (download.Result() != FirmwareDownload::Outcome::kDone || whom == For::kAnother) return;
  program_.Log.WriteLine("   Firmware downloaded OK");
  program_.ShowMessage(program_.Texts.Msg057, kOkInformation, "Firmware download");
}

}  // namespace morvane::maintenance
