#pragma once

#include "model/board_set.h"

namespace morvane::edit {

// What the editor does to whole boards. Each takes a set that exists and gives every board of it
// number, dealer and vulnerability by its place; `CurrentBoard` stays in the set. Where a set would
// leave 1..640 nothing is done.

/// Makes board 1, empty, where there is no set; brings `CurrentBoard` into the set's range.
void MakeUsable(BoardSet& set);
/// An empty board behind the last.
void AddBoard(BoardSet& set);
/// `board` in the current one's place; that one and those behind it move one number up.
void InsertBoard(BoardSet& set, const Board& board);
/// The boards behind the current one move one number down. The only board gives way to an empty
/// one.
void DeleteBoard(BoardSet& set);
/// Every board moves one number down, or up; the current one stays the same deal.
void ShiftLeft(BoardSet& set);
void ShiftRight(BoardSet& set);

[[nodiscard]] inline bool HasRoomBehind(const BoardSet& set) { return set.LastBoard < kMaxBoards; }
[[nodiscard]] inline bool HasRoomBefore(const BoardSet& set) { return set.FirstBoard > 1; }

/// Number, dealer and vulnerability of place `n`.
void Renumber(Board& board, int n);

}  // namespace morvane::edit
