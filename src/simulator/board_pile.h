#pragma once

#include <cstddef>
#include <utility>
#include <vector>

#include "model/board.h"

namespace morvane::simulator {

/// Boards that lie ready to be read, one after the other. A run that does not come to its end
/// leaves its board on the pile.
class BoardPile {
 public:
  void Lay(std::vector<Board> boards) {
    boards_ = std::move(boards);
    stays_ = false;
    PutBack();
  }
  /// One board that every run finds.
  void LayForGood(const Board& board) {
    Lay({board});
    stays_ = true;
  }

  [[nodiscard]] bool Empty() const { return boards_.empty(); }
  [[nodiscard]] std::size_t Count() const { return boards_.size(); }
  /// How many have not been read to their end.
  [[nodiscard]] std::size_t Left() const { return boards_.size() - next_; }
  [[nodiscard]] bool UsedUp() const { return Left() == 0; }

  /// The board of the run that begins; there must be one left.
  const Board& TakeUp() {
    takenUp_ = true;
    return boards_[next_];
  }
  /// The run has come to its end. Boards that were laid meanwhile stay all.
  void Finished() {
    if (std::exchange(takenUp_, false) && !stays_) ++next_;
  }
  /// All lie there again.
  void PutBack() {
    next_ = 0;
    takenUp_ = false;
  }

 private:
  std::vector<Board> boards_;
  std::size_t next_ = 0;
  bool takenUp_ = false;
  bool stays_ = false;
};

}  // namespace morvane::simulator
