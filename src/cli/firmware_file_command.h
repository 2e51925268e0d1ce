#pragma once

#include <string>

#include "cli/job.h"
#include "cli/option_reader.h"

namespace morvane::cli {

struct FirmwareFileOptions {
  std::string Code;
  std::string Bitstream;
  std::string Out;
};

[[nodiscard]] FirmwareFileOptions ReadFirmwareFileOptions(OptionReader& given);

/// Puts code and bitstream into one firmware file.
ExitStatus MakeFirmwareFile(Job& job, const FirmwareFileOptions& options);

extern const Command kFirmwareFileCommand;

}  // namespace morvane::cli
