#pragma once

#include <functional>

#include "generate/rejection.h"
#include "model/board_set.h"

namespace morvane::generate {

/// Makes one candidate in the board given: an empty record with its cards, and its number if any.
using CandidateSource = std::function<void(Board&)>;

/// Draws candidates until one passes the tests, and puts it into `set` as board `k`, counting its
/// shapes. False when the attempts ran out: board and counts are then as they were.
[[nodiscard]] bool MakeBoard(BoardSet& set, RejectionTests& tests, int k,
                             const CandidateSource& nextCandidate);

}  // namespace morvane::generate
