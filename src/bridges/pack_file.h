#pragma once

#include <optional>
#include <string>
#include <vector>

#include "model/board.h"

namespace morvane::bridges {

/// The boards of a board file as packs of cards, in the order of the set; empty ones are left out.
/// `path` may have any form that Load takes. What is wrong, in words for the person who named it: a
/// file that Load would refuse, one without a complete board, an incomplete board. `boards` is then
/// as it was.
[[nodiscard]] std::optional<std::string> ReadPackFile(const std::string& path,
                                                      std::vector<Board>& boards);

}  // namespace morvane::bridges
