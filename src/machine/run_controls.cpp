#include "machine/run_controls.h"

namespace morvane::machine {

bool RunControls::Allows(BoardWalk::Step step) const {
  switch (step) {
    case BoardWalk::Step::kFirst:
      return cmdFirst;
    case BoardWalk::Step::kPrev:
      return cmdPrev;
    case BoardWalk::Step::kNext:
      return cmdNext;
    case BoardWalk::Step::kLast:
      return cmdLast;
    case BoardWalk::Step::kPrevCopy:
      return PrevCopy;
    case BoardWalk::Step::kNextCopy:
      return NextCopy;
  }
  return false;
}

void RunControls::FollowBoard(const BoardWalk& walk) {
  cmdNext = cmdLast = !walk.AtLastBoard();
  cmdFirst = cmdPrev = !walk.AtFirstBoard();
}

void RunControls::FollowCopy(const BoardWalk& walk) {
  PrevCopy = !walk.AtFirstCopy();
  NextCopy = !walk.AtLastCopy();
}

}  // namespace morvane::machine
