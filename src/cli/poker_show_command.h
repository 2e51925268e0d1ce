#pragma once

#include <optional>
#include <string>

#include "cli/job.h"
#include "cli/option_reader.h"

namespace morvane::cli {

struct PokerShowOptions {
  std::string In;
  std::optional<int> Deal;  ///< otherwise all
};

[[nodiscard]] PokerShowOptions ReadPokerShowOptions(OptionReader& given);

/// Shows the deals of a poker order.
ExitStatus PokerShow(Job& job, const PokerShowOptions& options);

extern const Command kPokerShowCommand;

}  // namespace morvane::cli
