#pragma once

#include <optional>
#include <string>

#include "cli/job.h"
#include "cli/option_reader.h"

namespace morvane::cli {

/// What `maintain recognise` takes. A choice that is empty is the stored one.
struct MaintainRecogniseOptions {
  std::string Labels{};        ///< the file of the label picture; empty: none
  std::optional<int> Index{};  ///< the choices as `machine::CardSettings` has them
  std::optional<int> National{};
  std::optional<int> CardType{};
  std::optional<int> Threshold{};
};

[[nodiscard]] MaintainRecogniseOptions ReadMaintainRecogniseOptions(OptionReader& given);

/// Has the machine take a picture of a card and recognise it, and shows its verdict and what it has
/// measured. `kPartly` when it has not recognised it.
ExitStatus MaintainRecognise(Job& job, const MaintainRecogniseOptions& options);

extern const Command kMaintainRecogniseCommand;

}  // namespace morvane::cli
