#pragma once

#include <optional>
#include <string>

#include "cli/job.h"
#include "cli/option_reader.h"

namespace morvane::cli {

/// What `maintain picture` takes.
struct MaintainPictureOptions {
  std::string Out;
  std::optional<int> Index{};  ///< `CardSettings::Index`; empty: the stored one
};

[[nodiscard]] MaintainPictureOptions ReadMaintainPictureOptions(OptionReader& given);

/// Has the camera take a picture and writes it to the file. Done only with the whole of it.
ExitStatus MaintainPicture(Job& job, const MaintainPictureOptions& options);

extern const Command kMaintainPictureCommand;

}  // namespace morvane::cli
