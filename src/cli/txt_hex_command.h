#pragma once

#include <string>

#include "cli/job.h"
#include "cli/option_reader.h"

namespace morvane::cli {

struct TxtHexOptions {
  std::string In;
};

[[nodiscard]] TxtHexOptions ReadTxtHexOptions(OptionReader& given);

/// Writes a text hex file as Intel HEX beside it.
ExitStatus TxtHex(Job& job, const TxtHexOptions& options);

extern const Command kTxtHexCommand;

}  // namespace morvane::cli
