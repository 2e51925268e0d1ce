#pragma once

#include <cstdint>
#include <optional>

#include "cli/job.h"
#include "cli/option_reader.h"

namespace morvane::cli {

/// What `maintain record` takes; what is empty stays as the machine has it.
struct MaintainRecordOptions {
  struct Day {
    int Year = 0;
    int Month = 0;
    int Day = 0;
  };
  std::optional<std::uint16_t> Serial{};
  std::optional<std::uint16_t> Hardware{};  ///< bits of `kHardwareBits`
  std::optional<Day> Date{};                ///< there is such a day
  std::optional<std::uint32_t> BoardsDealt{};
  bool ClearErrors = false;
};

[[nodiscard]] MaintainRecordOptions ReadMaintainRecordOptions(OptionReader& given);

/// Shows the manufacturing record and the counters of the machine; with options writes what they
/// say before. Done only when the machine holds what was asked for.
ExitStatus MaintainRecord(Job& job, const MaintainRecordOptions& options);

extern const Command kMaintainRecordCommand;

}  // namespace morvane::cli
