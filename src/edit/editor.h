#pragma once

#include <functional>
#include <memory>
#include <string>

#include "edit/clip_memory.h"
#include "edit/edit_history.h"
#include "edit/edit_shuffle.h"
#include "program/program.h"

namespace morvane::edit {

/// What the editor needs of its window. What is shown is read from the editor.
class EditView {
 public:
  virtual ~EditView() = default;
  /// Anything of it has changed.
  virtual void Show() = 0;
  /// Gives the focus to the box `ActiveSuitBox`.
  virtual void FocusSuitBox() = 0;
};

/// `Edit` without its looks: a working copy of the current board, and what is done to it and to
/// whole boards. The set changes only by `kAccept` and by the commands on whole boards. It does not
/// touch `BoardSetChanged`: required, an edit alone asks for no save. The title and the copy of
/// unsaved work know of it.
class Editor {
 public:
  static constexpr int kTimer1Ms = 100;
  static constexpr int kTimer3Ms = 50;

  enum class Command {
    kAccept,
    kRestore,
    kRandom,
    kClear,
    kUndo,
    kRedo,
    kAdd,
    kInsert,
    kDelete,
    kCut,
    kCopy,
    kPaste,
    kShiftLeft,
    kShiftRight,
    kFirst,
    kPrev,
    kNext,
    kLast,
  };

  /// What others do for it.
  struct Services {
    /// A firmware file is to be downloaded; somebody has asked the operator.
    std::function<void(const std::string& path)> Download;
    /// The board of that number is to be analysed; done when it returns.
    std::function<void(int board)> Analyze;
  };

  Editor(Program& program, ClipMemory& clip, EditChance chance, Services services);

  /// Makes a set where there is none, and starts.
  void Open();
  /// Null: nobody looks any more.
  void ShowOn(EditView* view) { view_ = view; }

  /// Takes the current board of the set as the working copy.
  void DisplayBoard();
  /// Does nothing when it cannot be done now.
  void Do(Command command);
  [[nodiscard]] bool Can(Command command) const;
  /// `cmdSwap`, index 0..7 (`hand_swaps.h`).
  void cmdSwap(int index);
  /// `cmdCard`, index 0..12: adds the card of that rank to the box `ActiveSuitBox`.
  void cmdCard(int index);
  /// The operator has changed the text of a suit box, index 0..15 (`board_text.h`).
  void ChangeSuit(int box, const std::string& text);
  /// A suit box has got the focus.
  void EnterSuit(int box);
  /// The Enter key, wherever it was pressed.
  void EnterKey();
  /// Has the current board analysed, once changes are accepted.
  void Analyze();
  /// Closes, unless the operator wants to keep changes that were not accepted.
  void cmdExit();

  [[nodiscard]] const Board& EditBoard() const { return EditBoard_; }
  [[nodiscard]] int ActiveSuitBox() const { return ActiveSuitBox_; }
  /// Whether the working copy is the set's board, to the last field that an edit changes.
  [[nodiscard]] bool Accepted() const;
  /// Whether the `Tricks` of the set's board are known and speak of the cards that are shown.
  [[nodiscard]] bool Analyzed() const;
  [[nodiscard]] const BoardSet& Set() const { return program_.Set; }
  [[nodiscard]] const ClipMemory& Clip() const { return clip_; }
  [[nodiscard]] bool Closed() const { return closed_; }

 private:
  void DoToCopy(Command command);
  void DoToSet(Command command);
  void Accept();
  void Add();
  void InsertOrPaste(const Board& board);
  void Delete();
  void Shift(int by);
  void Copy();
  void Walk(int number);
  void GoTo(const EditHistory::State& state);
  void Change(const std::function<void(Board&)>& change);
  void KeepUnaccepted();
  void Refresh();
  void LogNumbers(const char* what);
  void Timer1EditTick();
  [[nodiscard]] bool RefusedByAnalysis();
  [[nodiscard]] EditHistory::State Now() const;

  Program& program_;
  ClipMemory& clip_;
  EditChance chance_;
  Services services_;
  EditView* view_ = nullptr;
  Board EditBoard_;
  EditHistory history_;
  int ActiveSuitBox_ = 0;
  std::unique_ptr<Timer> Timer1Edit_;
  std::unique_ptr<Timer> Timer3_;
  bool closed_ = false;
};

/// Brings up the editor's window.
class EditDialog {
 public:
  virtual ~EditDialog() = default;
  /// Shows it modally and returns when the editor is closed, or when nobody can close it any more
  /// because the program ends. False: this program has no such window.
  virtual bool ShowEdit(Editor& /*editor*/) { return false; }
};

}  // namespace morvane::edit
