#pragma once

#include "cli/paper_request.h"

namespace morvane::cli {

/// Writes the hands into a text file.
ExitStatus WriteText(Job& job, const PaperRequest& request);

extern const Command kTextCommand;

}  // namespace morvane::cli
