#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "files/format_table.h"
#include "model/board_set.h"

namespace morvane::files {

// Reads the boards of a set back from the log, in which their records stand line by line.

/// Asks whether the records from `line` (from 1) on are the set wanted; a `BoxAnswer`.
using AskRecords = std::function<int(int line)>;

/// How the reading of a log ended, and in which line; 0 when no record was met.
struct LogReading {
  enum class Result { kRead, kCancelled, kSyntaxError, kOutOfRange };

  Result Ending = Result::kRead;
  int Line = 0;
};

/// Reads the records of `text`, a byte for each character, that `ask` says yes to into `set`, which
/// must be clear; they end with the first line that is none. Of a record the number and the hands
/// are read. No record taken is no fault. Unless the ending is `kRead` the set holds what came
/// before it.
[[nodiscard]] LogReading ParseLog(std::string_view text, BoardSet& set, const AskRecords& ask);

bool ReadLogFile(Program& program, const Format& format, const std::string& path, FileNotes& notes);

}  // namespace morvane::files
