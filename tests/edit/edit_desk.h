#pragma once

#include <numeric>
#include <string>
#include <vector>

#include "edit/board_text.h"
#include "edit/editor.h"
#include "support/fakes.h"

namespace morvane::edit {

/// Board `n` as `FillSet` makes it.
[[nodiscard]] inline Board FilledBoard(int n) {
  BoardSet set;
  test::FillSet(set, n, n);
  return set.At(n);
}

struct FakeEditView final : EditView {
  void Show() override { ++Shown; }
  void FocusSuitBox() override { ++Focused; }
  int Shown = 0;
  int Focused = 0;
};

/// The editor on a desk, over boards 1 to 3, not opened yet.
struct EditDesk : test::TestDesk {
  using Command = Editor::Command;

  EditDesk() {
    test::FillSet(Prog.Set, 1, 3);
    std::iota(Deck.begin(), Deck.end(), std::int8_t{0});
    Edit.ShowOn(&View);
  }

  ClipMemory Clip;
  std::uint32_t StartParamMouse = 1;
  std::int32_t StartParamDays = 0;
  CardDeck Deck{};
  std::vector<std::string> Downloads;
  FakeEditView View;
  std::vector<int> Analyzed;  ///< the boards
  std::function<void(int)> OnAnalyze = [](int) {};
  Editor Edit{Prog,
              Clip,
              {Random, StartParamMouse, StartParamDays, Deck},
              {[this](const std::string& path) { Downloads.push_back(path); },
               [this](int board) {
                 Analyzed.push_back(board);
                 OnAnalyze(board);
               }}};

  /// Opens it over boards `first` to `last` at `current`.
  void Open(int first = 1, int last = 3, int current = 1) {
    test::FillSet(Prog.Set, first, last);
    Prog.Set.CurrentBoard = static_cast<std::int16_t>(current);
    Edit.Open();
    before_ = LogLines().size();
  }
  void Do(Command command) { Edit.Do(command); }
  [[nodiscard]] bool Can(Command command) const { return Edit.Can(command); }
  void Type(int box, const std::string& text) { Edit.ChangeSuit(box, text); }
  [[nodiscard]] std::string Text(int box) const { return SuitText(Edit.EditBoard(), box); }

  /// First, last and current board.
  [[nodiscard]] std::string Numbers() const {
    return std::to_string(Prog.Set.FirstBoard) + "," + std::to_string(Prog.Set.LastBoard) + "," +
           std::to_string(Prog.Set.CurrentBoard);
  }
  /// What was logged since the editor was opened.
  [[nodiscard]] std::vector<std::string> NewLines() const {
    const auto lines = LogLines();
    return {lines.begin() + static_cast<std::ptrdiff_t>(before_), lines.end()};
  }
  [[nodiscard]] bool HoldsCardsOf(int number, const Board& board) const {
    return Prog.Set.At(number).Cards == board.Cards;
  }

 private:
  std::size_t before_ = 0;
};

}  // namespace morvane::edit
