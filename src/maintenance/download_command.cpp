#include "maintenance/download_command.h"

#include "maintenance/firmware_choice.h"
#include "text/box_text.h"

namespace morvane::maintenance {
namespace {

/// Erasing flash takes the machine longer than an answer does.
constexpr std::int16_t kDownloadTimeoutMs = 2000;
constexpr std::int16_t kUsualTimeoutMs = 200;
constexpr const char* kCaption = "Firmware download";

using Outcome = FirmwareDownload::Outcome;

}  // namespace

bool DownloadCommand::Run(const std::string& path, For whom) {
  machine_.Link.SetLinkTimeouts(kDownloadTimeoutMs);
  const auto firmware = ChooseFirmware(program_, machine_, path);
  const bool sent = firmware && Transfer(*firmware, whom);
  if (link_.LinkFailed()) return false;
  machine_.Link.SetLinkTimeouts(kUsualTimeoutMs);
  return sent;
}

bool DownloadCommand::Transfer(const FirmwareFile& firmware, For whom) {
  FirmwareDownload download(program_, link_, machine_, firmware,
                            [this] { return host_.Leaving(); });
  {
    const auto window = host_.View().OpenFirmware(download);
    download.Run(*window);
  }
  TellEnd(download, whom);
  return download.Result() != Outcome::kNotBegun;
}

/// What has not been told yet.
void DownloadCommand::TellEnd(const FirmwareDownload& download, For whom) {
  if (download.Result() == Outcome::kUnknown && !link_.LinkFailed()) {
    program_.ShowMessage(
        "      It is not known what firmware the machine holds now:      \r\n      " +
            download.Why() + "      ",
        kOkExclamation, kCaption);
  }
  if (download.Result() != Outcome::kDone) return;
  if (whom == For::kAnother) {
    program_.Log.WriteLine("   Firmware download completed for another program");
    return;
  }
  program_.Log.WriteLine("   Firmware downloaded OK");
  program_.ShowMessage(program_.Texts.Msg057, kOkInformation, kCaption);
}

}  // namespace morvane::maintenance
