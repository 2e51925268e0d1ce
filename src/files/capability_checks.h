#pragma once

#include <string>

#include "files/format_table.h"
#include "model/board_set.h"

namespace morvane::files {

/// The numbers of the set's boards that are not complete, joined by ", "; a list of 30 characters
/// or more ends in ".... " where numbers are left out. Empty when all are complete.
[[nodiscard]] std::string IncompleteBoardList(const BoardSet& set);

/// Whether an event text of the set holds a character that PBN can't carry.
[[nodiscard]] bool HasPbnForbiddenChars(const BoardSet& set);

/// Holds `set`, whose `IncompleteBoardList` is `incompleteBoards`, against what `format` can carry,
/// and asks the operator about each loss in turn, as the settings want it. False: the set is not to
/// be saved; nothing was written.
[[nodiscard]] bool MaySave(Program& program, const BoardSet& set, const Format& format,
                           const std::string& incompleteBoards);

}  // namespace morvane::files
