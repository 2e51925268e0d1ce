#pragma once

#include "model/board.h"

namespace morvane::edit {

/// Exchanges the cards of two hands.
void SwapHands(Board& board, int a, int b);
/// Each card that is held goes to hand + `k` round the table, k 1..3.
void RotateHands(Board& board, int k);

inline constexpr int kSwaps = 8;
/// `cmdSwap` 0..7: N-W, N-E, S-E, S-W, N-S, E-W, CCW, CW.
void Swap(Board& board, int index);

}  // namespace morvane::edit
