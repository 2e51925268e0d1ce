#pragma once

#include "machine/board_walk.h"

namespace morvane::machine {

/// Which controls of the run window can be used now.
struct RunControls {
  bool cmdFirst = false;
  bool cmdPrev = false;
  bool cmdNext = false;
  bool cmdLast = false;
  bool cmdDeal = false;
  bool Deal_next = false;
  bool cmdBreak = false;  ///< and `cmdSortBreak`
  bool cmdExit = false;
  bool PrevCopy = false;
  bool NextCopy = false;
  bool cmdClear = false;
  bool cmdSort = false;
  bool Options = false;  ///< card settings, behaviour and number boxes

  [[nodiscard]] bool Allows(BoardWalk::Step step) const;
  /// The walk's buttons, by where it stands.
  void FollowBoard(const BoardWalk& walk);
  void FollowCopy(const BoardWalk& walk);
};

/// The run window's state, without its looks.
struct RunWindowState {
  RunControls Controls;
  bool SettingsShown = false;  ///< what depends on the machine hides until it has answered
  bool CopiesShown = false;
  bool ReadModesShown = false;
  bool SubRangeShown = false;
  bool Command1Shown = false;
  bool ShowBoards = false;
};

}  // namespace morvane::machine
