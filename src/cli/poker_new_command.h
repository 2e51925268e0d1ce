#pragma once

#include <optional>
#include <string>

#include "cli/job.h"
#include "cli/option_reader.h"

namespace morvane::cli {

/// What `poker new` takes. Texts that were not given are empty.
struct PokerNewOptions {
  std::string Out;
  std::optional<int> Deals;
  bool Empty = false;
  std::string Event;
  std::string Site;
  std::string Date;
};

[[nodiscard]] PokerNewOptions ReadPokerNewOptions(OptionReader& given);

/// Makes a poker order and saves it.
ExitStatus PokerNew(Job& job, const PokerNewOptions& options);

extern const Command kPokerNewCommand;

}  // namespace morvane::cli
