#pragma once

#include <cstdint>
#include <string>

#include "model/board_set.h"

namespace morvane::machine {

/// What stays between two openings of the run window.
struct RunMemory {
  std::int16_t RunFirst = 0;
  std::int16_t RunLast = 0;
  std::int16_t NumberOfCopies = 0;
  std::string TestText;  ///< every diagnosis text that was asked for
};

/// Where a run stands: the set's current board and its copy, within a range of the set's boards and
/// a number of copies of each.
class BoardWalk {
 public:
  static constexpr int kMostCopies = 99;
  enum class Step { kFirst, kPrev, kNext, kLast, kPrevCopy, kNextCopy };

  BoardWalk(BoardSet& set, RunMemory& memory) : set_(set), memory_(memory) {}

  /// Takes range and copies from the last opening where they are in use, otherwise the whole set
  /// and one copy, and goes to the first board.
  void Open(bool copies, bool subRange);
  /// There is no copy of a board that is read.
  void WithoutCopies() { memory_.NumberOfCopies = 0; }
  /// One board more, an empty one where the set has none; false when there can be none.
  bool Grow();

  /// One button of the walk; it stays within range and copies.
  void Take(Step step);
  /// The order of dealing: all copies of a board before the next board. On the last copy of the
  /// last board it stays there with copy 1.
  void NextBoardStep();
  void BackToStart();

  /// 1..99 copies; a copy beyond them is cut back.
  void SetCopies(int copies);
  /// Each number is brought into the set and the current board into the range; whether it moved.
  bool SetFirst(int first) { return SetRange(first, memory_.RunLast); }
  bool SetLast(int last) { return SetRange(memory_.RunFirst, last); }

  [[nodiscard]] const RunMemory& Range() const { return memory_; }
  [[nodiscard]] std::int16_t CurrentCopy() const { return copy_; }
  [[nodiscard]] bool AtFirstBoard() const { return set_.CurrentBoard <= memory_.RunFirst; }
  [[nodiscard]] bool AtLastBoard() const { return set_.CurrentBoard >= memory_.RunLast; }
  [[nodiscard]] bool AtFirstCopy() const { return copy_ <= 1; }
  [[nodiscard]] bool AtLastCopy() const { return copy_ >= memory_.NumberOfCopies; }
  /// Board and copy are the last of the run.
  [[nodiscard]] bool AtEnd() const { return AtLastBoard() && AtLastCopy(); }

 private:
  void GoToBoard(int board);
  void GoToCopy(int copy);
  bool SetRange(int first, int last);

  BoardSet& set_;
  RunMemory& memory_;
  std::int16_t copy_ = 1;
};

}  // namespace morvane::machine
