#pragma once

#include <optional>
#include <string>

#include "cli/paper_request.h"
#include "platform/printer.h"

namespace morvane::cli {

/// What `print` takes; see `PaperRequest`.
struct PrintRequest {
  PaperRequest Common;
  std::optional<std::string> PerPage;  ///< "10", "12", "15" or "18"
  bool ScoreCards = false;
  bool NoHcp = false;
  bool NoColour = false;
  bool Stats = false;
  std::optional<std::string> Paper;     ///< "a4" or "letter"
  std::optional<std::string> NsOffset;  ///< the pair on the first row of a score card
};

[[nodiscard]] PrintRequest ReadPrintRequest(OptionReader& given);

/// Writes hand records or score cards into a PDF file.
ExitStatus Print(Job& job, const PrintRequest& request);

extern const Command kPrintCommand;

}  // namespace morvane::cli
