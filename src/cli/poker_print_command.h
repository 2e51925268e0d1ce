#pragma once

#include <optional>
#include <string>

#include "cli/job.h"
#include "cli/option_reader.h"

namespace morvane::cli {

struct PokerPrintOptions {
  std::string In;
  std::string Out;
  std::optional<std::string> Paper;  ///< "a4" or "letter"
};

[[nodiscard]] PokerPrintOptions ReadPokerPrintOptions(OptionReader& given);

/// Writes the list of a poker order into a PDF file.
ExitStatus PokerPrint(Job& job, const PokerPrintOptions& options);

extern const Command kPokerPrintCommand;

}  // namespace morvane::cli
