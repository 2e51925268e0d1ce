#pragma once

#include <optional>
#include <string>

#include "cli/job.h"
#include "cli/option_reader.h"

namespace morvane::cli {

struct PokerReadOptions {
  std::string Out;
  std::optional<int> Deals{};
  bool Auto = false;
  bool Yes = false;
};

[[nodiscard]] PokerReadOptions ReadPokerReadOptions(OptionReader& given);

/// Reads stacked packs into an empty order and saves it. Done only when all were read and saved.
ExitStatus PokerRead(Job& job, const PokerReadOptions& options);

extern const Command kPokerReadCommand;

}  // namespace morvane::cli
