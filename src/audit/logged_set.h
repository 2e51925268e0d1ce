#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "generate/generate_line.h"
#include "program/log_record.h"

namespace morvane::audit {

// What a log says of the sets that were made. A log may be damaged anywhere: whatever is kept here
// as a text is bytes of the log, not to be shown unless it was checked.

/// The record of a board, in the long form.
struct LoggedRecord {
  std::size_t Line = 0;  ///< of the log, from 1
  int Number = 0;        ///< 0..999
  std::string Text;      ///< 103 characters, as `FormatBoardForLog` writes them

  [[nodiscard]] std::string_view Hands() const { return log_record::HandsIn(Text); }
  [[nodiscard]] std::string_view DealNumber() const { return log_record::DealNumberIn(Text); }
  [[nodiscard]] std::string_view DealCounter() const { return log_record::DealCounterIn(Text); }
};

/// Lines that tell of one set.
struct LoggedSet {
  enum Kind {
    kDealt,          ///< boards of either generator
    kEmpty,          ///< boards that were left empty
    kDamagedLine,    ///< the Generate line cannot be read, or is not the one of these records
    kNoGenerateLine  ///< records that belong to no set
  };
  Kind Is = kDealt;
  std::size_t Line = 0;               ///< of the Generate line, or else of the first record
  generate::GenerateLine What;        ///< of a set dealt or empty
  std::vector<LoggedRecord> Records;  ///< of a set dealt, in the order of the log
  int OtherRecords = 0;               ///< how many there are where they are not kept
};

/// The number generator's seeds as the log has them: 40 hexadecimal digits each.
struct LoggedSeeds {
  std::size_t Line = 0;
  std::string Seedr;
  std::string Seedo;
};

/// The record in a line of the log, without its place; nothing when the line is none.
[[nodiscard]] std::optional<LoggedRecord> ParseRecord(std::string_view line);

}  // namespace morvane::audit
