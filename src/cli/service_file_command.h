#pragma once

#include <optional>
#include <string>

#include "cli/job.h"
#include "cli/option_reader.h"

namespace morvane::cli {

struct ServiceFileOptions {
  std::string In;
  std::string Picture{};       ///< empty: none is wanted
  std::string Labels{};        ///< the same
  std::optional<int> Index{};  ///< `CardSettings::Index`; the file's own otherwise
};

[[nodiscard]] ServiceFileOptions ReadServiceFileOptions(OptionReader& given);

/// Prints what a service file tells, and writes its pictures.
ExitStatus ShowServiceFile(Job& job, const ServiceFileOptions& options);

extern const Command kServiceFileCommand;

}  // namespace morvane::cli
