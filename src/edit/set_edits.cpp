#include "edit/set_edits.h"

#include <algorithm>

namespace morvane::edit {
namespace {

void RenumberAll(BoardSet& set) {
  for (int n = set.FirstBoard; n <= set.LastBoard; ++n) Renumber(set.At(n), n);
}

void Move(std::int16_t& number, int by) { number = static_cast<std::int16_t>(number + by); }

/// Moves the boards `from`..`to` one number up; their first place is free then.
void MoveUp(BoardSet& set, int from, int to) {
  const auto boards = set.Boards.begin();
  std::move_backward(boards + from, boards + to + 1, boards + to + 2);
  set.At(from) = Board{};
}

/// The same, one number down; the last place is free then.
void MoveDown(BoardSet& set, int from, int to) {
  const auto boards = set.Boards.begin();
  std::move(boards + from, boards + to + 1, boards + from - 1);
  set.At(to) = Board{};
}

}  // namespace

void Renumber(Board& board, int n) {
  const Board numbered = NumberedBoard(n);
  board.Number = numbered.Number;
  board.Dealer = numbered.Dealer;
  board.Vul = numbered.Vul;
}

void MakeUsable(BoardSet& set) {
  if (!set.Exists()) {
    set.FirstBoard = 1;
    set.LastBoard = 1;
    set.At(1) = NumberedBoard(1);
  }
  set.CurrentBoard = std::clamp(set.CurrentBoard, set.FirstBoard, set.LastBoard);
}

void AddBoard(BoardSet& set) {
  if (!HasRoomBehind(set)) return;
  Move(set.LastBoard, 1);
  set.At(set.LastBoard) = Board{};
  RenumberAll(set);
}

void InsertBoard(BoardSet& set, const Board& board) {
  if (!HasRoomBehind(set)) return;
  MoveUp(set, set.CurrentBoard, set.LastBoard);
  Move(set.LastBoard, 1);
  set.Current() = board;
  RenumberAll(set);
}

void DeleteBoard(BoardSet& set) {
  set.Current() = Board{};
  if (set.Count() > 1) {
    if (set.CurrentBoard < set.LastBoard) MoveDown(set, set.CurrentBoard + 1, set.LastBoard);
    Move(set.LastBoard, -1);
    set.CurrentBoard = std::min(set.CurrentBoard, set.LastBoard);
  }
  RenumberAll(set);
}

void ShiftLeft(BoardSet& set) {
  if (!HasRoomBefore(set)) return;
  MoveDown(set, set.FirstBoard, set.LastBoard);
  for (std::int16_t* number : {&set.FirstBoard, &set.LastBoard, &set.CurrentBoard}) {
    Move(*number, -1);
  }
  RenumberAll(set);
}

void ShiftRight(BoardSet& set) {
  if (!HasRoomBehind(set)) return;
  MoveUp(set, set.FirstBoard, set.LastBoard);
  for (std::int16_t* number : {&set.FirstBoard, &set.LastBoard, &set.CurrentBoard}) {
    Move(*number, 1);
  }
  RenumberAll(set);
}

}  // namespace morvane::edit
