#pragma once

#include <cstdint>
#include <functional>

#include "generate/rejection.h"
#include "model/board_set.h"

namespace morvane::generate {

/// The candidates that are drawn for a board. The last of them is in vain even if it passes the
/// tests: required.
inline constexpr std::int16_t kAttempts = 50;

/// Makes one candidate in the board given: an empty record with its cards, and its number if any.
using CandidateSource = std::function<void(Board&)>;

/// Draws candidates until one passes the tests, and puts it into `set` as board `k`, counting its
/// shapes. False when the attempts ran out: board and counts are then as they were.
[[nodiscard]] bool MakeBoard(BoardSet& set, RejectionTests& tests, int k,
                             const CandidateSource& nextCandidate);

/// Puts `candidate` into `set` as board `k`, counting its shapes.
void Accept(BoardSet& set, const Board& candidate, int k);

}  // namespace morvane::generate
