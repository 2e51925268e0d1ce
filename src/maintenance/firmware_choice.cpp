#include "maintenance/firmware_choice.h"

#include <cerrno>

#include "platform/files.h"
#include "text/box_text.h"

namespace morvane::maintenance {
namespace {

using wire::IdentityReply;

constexpr const char* kError = "Download Error";
/// From here on firmware knows the camera with video settings.
constexpr FirmwareVersion kKnowsVideo{2, 0x80};

void Tell(Program& program, const std::string& text) {
  program.ShowMessage(text, kOkCritical, kError);
}

std::string AskFirmwareFile(Program& program) {
  return program.Operator
      .AskFile({"Open firmware file", "Morvane firmware file (*.adc)|*.adc", 1, "", false})
      .value_or("");
}

std::optional<FirmwareFile> ReadFirmware(Program& program, const std::string& path) {
  std::string bytes;
  const auto error = ReadFile(path, bytes, FirmwareFile::kLargest);
  if (error && error->Number != EFBIG) {
    Tell(program, "      Error: " + std::to_string(error->Number) + ", " + error->Description +
                      "      \r\n      Firmware file: " + path + "      ");
    return std::nullopt;
  }
  auto firmware = error ? std::nullopt : FirmwareIn(bytes, path);
  if (!firmware) Tell(program, program.Texts.Msg059);
  return firmware;
}

bool Fits(const FirmwareFile& firmware, const machine::Machine& machine) {
  return !machine.HasHardware(IdentityReply::kVideoSettings) || firmware.Version() >= kKnowsVideo;
}

}  // namespace

std::optional<FirmwareFile> ChooseFirmware(Program& program, const machine::Machine& machine,
                                           std::string path) {
  if (path.empty()) path = AskFirmwareFile(program);
  if (path.empty()) return std::nullopt;
  program.Log.WriteLine("   Firmware file open: " + path);
  auto firmware = ReadFirmware(program, path);
  if (firmware && !Fits(*firmware, machine)) {
    program.ShowMessage(program.Texts.Msg118, kOkCritical, "Firmware download");
    return std::nullopt;
  }
  return firmware;
}

}  // namespace morvane::maintenance
