#pragma once

#include <optional>

#include "cli/job.h"
#include "cli/option_reader.h"

namespace morvane::cli {

/// What `maintain test-deal` takes.
struct MaintainTestDealOptions {
  std::optional<int> Index{};  ///< `CardSettings::Index`; empty: the stored one
  bool Yes = false;
};

[[nodiscard]] MaintainTestDealOptions ReadMaintainTestDealOptions(OptionReader& given);

/// Deals a known deck until the machine takes a card for another. Done only when the last deal was
/// without a difference and nobody wanted another.
ExitStatus MaintainTestDeal(Job& job, const MaintainTestDealOptions& options);

extern const Command kMaintainTestDealCommand;

}  // namespace morvane::cli
