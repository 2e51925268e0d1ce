#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "model/board_set.h"

namespace morvane::files {

// The copy of a set that has not been saved. Unlike a board file it keeps everything that the set
// has: incomplete boards, any event text, results, the generator's identity of each deal. It is
// made of lines that end with LF:
//
//     Morvane unsaved Board Set 1
//     When: <n> <n bytes>                     when it was kept, as texts show it
//     File: <n> <n bytes>                     `BoardSetFile`
//     Name: <n> <n bytes>                     the event texts
//     Site: <n> <n bytes>
//     Date: <n> <n bytes>
//     Boards: <first> <last> <current>
//     <number> <dealer> <vul> <cards> <tricks> <deal number> <deal counter>     a line a board,
//     End                                                        hexadecimal from the cards on

struct UnsavedSet {
  std::string When;
  BoardSet Set;  ///< analysed; `BoardSetChanged` is "1"
};

[[nodiscard]] std::string UnsavedText(const BoardSet& set, std::string_view when);

/// The set of such a text; nothing unless all of it is as `UnsavedText` writes it.
[[nodiscard]] std::optional<UnsavedSet> ReadUnsavedText(std::string_view text);

}  // namespace morvane::files
