#include "machine/board_walk.h"

#include <algorithm>

namespace morvane::machine {

void BoardWalk::Open(bool copies, bool subRange) {
  memory_.NumberOfCopies = copies ? std::max<std::int16_t>(memory_.NumberOfCopies, 1) : 1;
  if (!subRange || memory_.RunFirst == 0) memory_.RunFirst = set_.FirstBoard;
  if (!subRange || memory_.RunLast == 0) memory_.RunLast = set_.LastBoard;
  memory_.RunFirst = std::clamp(memory_.RunFirst, set_.FirstBoard, set_.LastBoard);
  memory_.RunLast = std::clamp(memory_.RunLast, memory_.RunFirst, set_.LastBoard);
  BackToStart();
}

void BoardWalk::BackToStart() {
  set_.CurrentBoard = memory_.RunFirst;
  copy_ = 1;
}

bool BoardWalk::Grow() {
  if (memory_.RunLast >= kMaxBoards) return false;
  ++memory_.RunLast;
  if (memory_.RunLast > set_.LastBoard) {
    set_.LastBoard = memory_.RunLast;
    set_.At(set_.LastBoard) = NumberedBoard(set_.LastBoard);
  }
  return true;
}

void BoardWalk::Take(Step step) {
  switch (step) {
    case Step::kFirst:
      return GoToBoard(memory_.RunFirst);
    case Step::kPrev:
      return GoToBoard(set_.CurrentBoard - 1);
    case Step::kNext:
      return GoToBoard(set_.CurrentBoard + 1);
    case Step::kLast:
      return GoToBoard(memory_.RunLast);
    case Step::kPrevCopy:
      return GoToCopy(copy_ - 1);
    case Step::kNextCopy:
      return GoToCopy(copy_ + 1);
  }
}

void BoardWalk::NextBoardStep() {
  if (!AtLastCopy()) {
    ++copy_;
    return;
  }
  copy_ = 1;
  if (!AtLastBoard()) ++set_.CurrentBoard;
}

void BoardWalk::SetCopies(int copies) {
  memory_.NumberOfCopies = static_cast<std::int16_t>(std::clamp(copies, 1, kMostCopies));
  copy_ = std::min(copy_, memory_.NumberOfCopies);
}

bool BoardWalk::SetRange(int first, int last) {
  memory_.RunFirst =
      static_cast<std::int16_t>(std::clamp<int>(first, set_.FirstBoard, set_.LastBoard));
  memory_.RunLast =
      static_cast<std::int16_t>(std::clamp<int>(last, memory_.RunFirst, set_.LastBoard));
  const std::int16_t before = set_.CurrentBoard;
  GoToBoard(before);
  return set_.CurrentBoard != before;
}

void BoardWalk::GoToBoard(int board) {
  set_.CurrentBoard =
      static_cast<std::int16_t>(std::clamp<int>(board, memory_.RunFirst, memory_.RunLast));
}

void BoardWalk::GoToCopy(int copy) {
  copy_ = static_cast<std::int16_t>(std::clamp<int>(copy, 1, memory_.NumberOfCopies));
}

}  // namespace morvane::machine
