#pragma once

#include <optional>
#include <string>

#include "analysis/mailbox.h"
#include "model/board.h"

namespace morvane::solver {

/// The level that so many tricks make.
[[nodiscard]] constexpr std::uint8_t LevelOfTricks(int tricks) {
  constexpr int kBook = 6;
  return tricks > kBook ? static_cast<std::uint8_t>(tricks - kBook) : 0;
}

/// What the solver library has found of a board.
struct Table {
  analysis::Levels Levels{};
  std::string Error;  ///< empty, or the library's words
};
/// Of a complete board. It takes as long as it takes, on all processors.
[[nodiscard]] Table CalcTable(const Board& board);

/// "DDS 2.9.0".
[[nodiscard]] std::string LibraryVersion();

}  // namespace morvane::solver
