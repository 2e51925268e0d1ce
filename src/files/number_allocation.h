#pragma once

#include <string>

#include "files/format_table.h"
#include "model/board_set.h"

namespace morvane::files {

class NumberDialog;

/// Gives the boards of `set`, which stand at 1 to its count, the numbers from `newFirst` on, and
/// dealer and vulnerability by these. The last one must not be above 640. What stood below
/// `newFirst` stays in the array, outside the set.
void MoveSet(BoardSet& set, int newFirst);

/// Gives a set that was read from a file of `format` its board numbers: those of each board stand,
/// those that the file gives for the whole set are taken where they fit, and otherwise the operator
/// is asked, where the settings want it. False: nobody answered.
[[nodiscard]] bool AllocateNumbers(Program& program, NumberDialog& dialog, const Format& format,
                                   const FileNumbers& numbers);

}  // namespace morvane::files
