#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "model/board_set.h"
#include "print/print_options.h"

namespace morvane {
class Program;
}

namespace morvane::print {

/// The first `count` characters of UTF-8 `text`, or all of it and blanks to as many.
[[nodiscard]] std::string CutOrFilled(std::string_view text, std::size_t count);

/// The bytes of a text file with the hands of the boards `From`..`To`, which are in the set. Its
/// first lines tell the header and the date of the event. `boardDone` is called behind each board;
/// nothing when it ended it.
[[nodiscard]] std::optional<std::string> HandsText(const BoardSet& set, const PrintOptions& options,
                                                   const std::function<bool()>& boardDone);

/// Asks for a file and writes the hands into it. False: nothing was written, because the operator
/// or `boardDone` ended it, or because of a failure that the operator has been told.
bool PrintToTextFile(Program& program, const PrintOptions& options,
                     const std::function<bool()>& boardDone);

}  // namespace morvane::print
