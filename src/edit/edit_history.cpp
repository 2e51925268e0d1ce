#include "edit/edit_history.h"

#include "edit/set_edits.h"

namespace morvane::edit {

void EditHistory::Note(const State& before) {
  EndTyping();
  redo_.clear();
  if (undo_.size() == kMost) undo_.erase(undo_.begin());
  undo_.push_back(before);
}

void EditHistory::NoteTyping(int box, const State& before) {
  if (typedIn_ == box) return;
  Note(before);
  typedIn_ = box;
}

std::optional<EditHistory::State> EditHistory::Step(States& from, States& to, const State& now) {
  EndTyping();
  if (from.empty()) return std::nullopt;
  to.push_back(now);
  State state = from.back();
  from.pop_back();
  return state;
}

void EditHistory::Renumber(const std::function<int(int)>& newNumber) {
  EndTyping();
  for (States* states : {&undo_, &redo_}) {
    for (State& state : *states) {
      state.Number = newNumber(state.Number);
      edit::Renumber(state.Copy, state.Number);
    }
    std::erase_if(*states, [](const State& state) { return state.Number == 0; });
  }
}

}  // namespace morvane::edit
