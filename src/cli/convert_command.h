#pragma once

#include <optional>
#include <string>

#include "cli/job.h"
#include "cli/option_reader.h"

namespace morvane::cli {

struct ConvertOptions {
  std::string In;
  std::string Out;
  std::optional<std::string> First;  ///< the answer where the file has no board numbers
  bool Import = false;
};

[[nodiscard]] ConvertOptions ReadConvertOptions(OptionReader& given);

/// Loads or imports one file and saves the set in the other.
ExitStatus Convert(Job& job, const ConvertOptions& options);

extern const Command kConvertCommand;

}  // namespace morvane::cli
