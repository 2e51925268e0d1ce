#pragma once

#include <optional>
#include <string>
#include <vector>

#include "cli/job.h"
#include "cli/option_reader.h"

namespace morvane::cli {

struct ConvertOptions {
  std::vector<std::string> In;
  std::string Out;                   ///< the file, or with `To` the folder
  std::optional<std::string> To;     ///< the format of all: its extension
  std::optional<std::string> First;  ///< the answer where the file has no board numbers
  bool Import = false;
  bool History = true;
};

[[nodiscard]] ConvertOptions ReadConvertOptions(OptionReader& given);

/// Loads or imports one file and saves the set in the other, or each of several in a folder. A file
/// that fails does not keep the rest from it.
ExitStatus Convert(Job& job, const ConvertOptions& options);

extern const Command kConvertCommand;

}  // namespace morvane::cli
