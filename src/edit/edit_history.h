#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "model/board.h"

namespace morvane::edit {

/// The working copies as they were before each change, for undo and redo.
class EditHistory {
 public:
  static constexpr std::size_t kMost = 1000;  ///< older ones are forgotten

  /// A working copy, and the number of the board that it was made of.
  struct State {
    int Number = 0;
    Board Copy;
  };

  /// A change; `before` is what undo goes back to.
  void Note(const State& before);
  /// The same for what is typed in a box: until `EndTyping`, or until another box, it is one step.
  void NoteTyping(int box, const State& before);
  void EndTyping() { typedIn_.reset(); }

  [[nodiscard]] bool CanUndo() const { return !undo_.empty(); }
  [[nodiscard]] bool CanRedo() const { return !redo_.empty(); }
  /// The state to go back or on to, if there is one; `now` is kept for the way back.
  [[nodiscard]] std::optional<State> Undo(const State& now) { return Step(undo_, redo_, now); }
  [[nodiscard]] std::optional<State> Redo(const State& now) { return Step(redo_, undo_, now); }

  /// The boards of the set have got other numbers: `newNumber` of the old one, 0 when it has gone.
  void Renumber(const std::function<int(int)>& newNumber);

 private:
  using States = std::vector<State>;
  std::optional<State> Step(States& from, States& to, const State& now);

  States undo_;
  States redo_;
  std::optional<int> typedIn_;
};

}  // namespace morvane::edit
