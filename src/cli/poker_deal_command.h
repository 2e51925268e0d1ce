#pragma once

#include <optional>
#include <string>

#include "cli/job.h"
#include "cli/option_reader.h"

namespace morvane::cli {

/// What `poker deal` takes. A number that was not given is empty: the order's first or last deal.
struct PokerDealOptions {
  std::string In;
  std::optional<int> From{};
  std::optional<int> To{};
  bool Auto = false;
  bool Yes = false;
};

[[nodiscard]] PokerDealOptions ReadPokerDealOptions(OptionReader& given);

/// Stacks the deals of an order. Done only when all that were asked for are stacked.
ExitStatus PokerDeal(Job& job, const PokerDealOptions& options);

extern const Command kPokerDealCommand;

}  // namespace morvane::cli
