#include "edit/editor.h"

#include <utility>

#include "edit/board_text.h"
#include "edit/hand_swaps.h"
#include "edit/set_edits.h"
#include "model/results.h"
#include "program/log_record.h"

namespace morvane::edit {
namespace {

using Command = Editor::Command;

bool AltersSet(Command command) {
  switch (command) {
    case Command::kAccept:
    case Command::kAdd:
    case Command::kInsert:
    case Command::kDelete:
    case Command::kCut:
    case Command::kPaste:
    case Command::kShiftLeft:
    case Command::kShiftRight:
      return true;
    default:
      return false;
  }
}

}  // namespace

Editor::Editor(Program& program, ClipMemory& clip, EditChance chance, Services services)
    : program_(program), clip_(clip), chance_(chance), services_(std::move(services)) {}

void Editor::Open() {
  MakeUsable(program_.Set);
  DisplayBoard();
  program_.Log.WriteTime(" Edit: ");
  Timer1Edit_ = program_.Loop.StartTimer(kTimer1Ms, [this] { Timer1EditTick(); });
}

void Editor::DisplayBoard() {
  history_.EndTyping();
  EditBoard_ = program_.Set.Current();
  Refresh();
}

bool Editor::Accepted() const { return CompareBoards(EditBoard_, program_.Set.Current()) == 2; }

bool Editor::Analyzed() const {
  const Board& stored = program_.Set.Current();
  return CompareBoards(EditBoard_, stored) != 0 && HasResults(stored);
}

bool Editor::Can(Command command) const {
  const BoardSet& set = program_.Set;
  switch (command) {
    case Command::kAccept:
    case Command::kRestore:
      return !Accepted();
    case Command::kUndo:
      return history_.CanUndo();
    case Command::kRedo:
      return history_.CanRedo();
    case Command::kAdd:
    case Command::kInsert:
    case Command::kShiftRight:
      return HasRoomBehind(set);
    case Command::kPaste:
      return HasRoomBehind(set) && clip_.ClipFilled;
    case Command::kShiftLeft:
      return HasRoomBefore(set);
    case Command::kFirst:
    case Command::kPrev:
      return set.CurrentBoard > set.FirstBoard;
    case Command::kNext:
    case Command::kLast:
      return set.CurrentBoard < set.LastBoard;
    default:
      return true;
  }
}

void Editor::Do(Command command) {
  if (closed_ || !Can(command)) return;
  if (AltersSet(command)) {
    if (RefusedByAnalysis()) return;
    program_.Set.Edited = true;
    DoToSet(command);
  } else {
    DoToCopy(command);
  }
}

void Editor::DoToSet(Command command) {
  switch (command) {
    case Command::kAccept:
      return Accept();
    case Command::kAdd:
      return Add();
    case Command::kInsert:
      InsertOrPaste(Board{});
      return LogNumbers("Insert");
    case Command::kPaste:
      InsertOrPaste(clip_.ClipBoard);
      return LogNumbers("Paste");
    case Command::kDelete:
      Delete();
      return LogNumbers("Delete");
    case Command::kCut:
      Copy();
      Delete();
      return LogNumbers("Cut");
    case Command::kShiftLeft:
      Shift(-1);
      return LogNumbers("Shift_left");
    default:
      Shift(1);
      return LogNumbers("Shift_right");
  }
}

void Editor::DoToCopy(Command command) {
  const BoardSet& set = program_.Set;
  switch (command) {
    case Command::kCopy:
      Copy();
      LogNumbers("Copy");
      return Refresh();
    case Command::kRestore:
      Change([&set](Board& board) { board = set.Current(); });
      return EnterKey();
    case Command::kRandom:
      return Change([this](Board& board) {
        ShuffleForEdit(chance_);
        FillFromDeck(board, chance_.Deck);
      });
    case Command::kClear:
      return Change([](Board& board) { board = Board{}; });
    case Command::kUndo:
      return GoTo(*history_.Undo(Now()));
    case Command::kRedo:
      return GoTo(*history_.Redo(Now()));
    case Command::kFirst:
      return Walk(set.FirstBoard);
    case Command::kPrev:
      return Walk(set.CurrentBoard - 1);
    case Command::kNext:
      return Walk(set.CurrentBoard + 1);
    default:
      return Walk(set.LastBoard);
  }
}

/// The board keeps its own number, also when the working copy was cleared. What an analysis or the
/// generator said of it spoke of other cards, where these have changed. Undo may have brought the
/// working copy what was said of cards before: only what the set says counts.
void Editor::Accept() {
  Board& stored = program_.Set.Current();
  EditBoard_.Number = program_.Set.CurrentBoard;
  const Board said = CompareBoards(EditBoard_, stored) == 0 ? Board{} : stored;
  EditBoard_.Tricks = said.Tricks;
  EditBoard_.DealNumber = said.DealNumber;
  EditBoard_.DealCounter = said.DealCounter;
  stored = EditBoard_;
  history_.EndTyping();
  Refresh();
  program_.Log.WriteLine("   Accept: " + std::to_string(stored.Number) + "  " +
                         FormatBoardForLog(stored, false));
}

/// The working copy keeps its cards, and gets what the numbers of the set say.
void Editor::Add() {
  AddBoard(program_.Set);
  Renumber(EditBoard_, program_.Set.CurrentBoard);
  history_.Renumber([](int number) { return number; });
  Refresh();
  LogNumbers("Add");
}

void Editor::InsertOrPaste(const Board& board) {
  KeepUnaccepted();
  const int place = program_.Set.CurrentBoard;
  InsertBoard(program_.Set, board);
  history_.Renumber([place](int number) { return number < place ? number : number + 1; });
  DisplayBoard();
}

void Editor::Delete() {
  KeepUnaccepted();
  const int place = program_.Set.CurrentBoard;
  DeleteBoard(program_.Set);
  history_.Renumber([place](int number) {
    if (number == place) return 0;
    return number < place ? number : number - 1;
  });
  DisplayBoard();
}

void Editor::Shift(int by) {
  KeepUnaccepted();
  by < 0 ? ShiftLeft(program_.Set) : ShiftRight(program_.Set);
  history_.Renumber([by](int number) { return number + by; });
  DisplayBoard();
}

void Editor::Copy() { clip_ = {program_.Set.Current(), true}; }

void Editor::Walk(int number) {
  KeepUnaccepted();
  program_.Set.CurrentBoard = static_cast<std::int16_t>(number);
  DisplayBoard();
}

/// Undo comes back to what is given up here.
void Editor::KeepUnaccepted() {
  if (CompareBoards(EditBoard_, program_.Set.Current()) == 0) history_.Note(Now());
}

EditHistory::State Editor::Now() const { return {program_.Set.CurrentBoard, EditBoard_}; }

void Editor::GoTo(const EditHistory::State& state) {
  program_.Set.CurrentBoard = static_cast<std::int16_t>(state.Number);
  EditBoard_ = state.Copy;
  Refresh();
}

void Editor::Change(const std::function<void(Board&)>& change) {
  const EditHistory::State before = Now();
  change(EditBoard_);
  if (CompareBoards(before.Copy, EditBoard_) != 2) history_.Note(before);
  Refresh();
}

void Editor::cmdSwap(int index) {
  Change([index](Board& board) { Swap(board, index); });
}

void Editor::cmdCard(int index) {
  const std::string text = SuitText(EditBoard_, ActiveSuitBox_);
  Change([this, &text, index](Board& board) {
    ParseSuit(board, ActiveSuitBox_, text + CardLetters[static_cast<std::size_t>(index)]);
  });
}

void Editor::ChangeSuit(int box, const std::string& text) {
  const EditHistory::State before = Now();
  ParseSuit(EditBoard_, box, text);
  if (CompareBoards(before.Copy, EditBoard_) == 0) history_.NoteTyping(box, before);
  Refresh();
}

void Editor::EnterSuit(int box) {
  history_.EndTyping();
  ActiveSuitBox_ = box;
}

void Editor::EnterKey() {
  if (closed_) return;
  Timer3_ = program_.Loop.StartTimer(kTimer3Ms, [this] {
    Timer3_.reset();
    if (view_ != nullptr) view_->FocusSuitBox();
  });
}

void Editor::cmdExit() {
  if (closed_) return;
  if (CompareBoards(EditBoard_, program_.Set.Current()) == 0 &&
      program_.Ask(program_.Texts.Msg093, kYesNoExclamation, "Edit") != kYes) {
    return;
  }
  closed_ = true;
  Timer1Edit_.reset();
  Timer3_.reset();
}

void Editor::Refresh() {
  AnalyzeBoard(EditBoard_);
  if (view_ != nullptr) view_->Show();
}

void Editor::Analyze() {
  if (closed_) return;
  const char* refusal = program_.AnalysisRunning ? program_.Texts.Msg104.c_str()
                        : Accepted()             ? nullptr
                                                 : program_.Texts.Msg108.c_str();
  if (refusal != nullptr) {
    program_.ShowMessage(refusal, kOkCritical, "Analyze Error");
    return;
  }
  services_.Analyze(program_.Set.CurrentBoard);
  DisplayBoard();
}

bool Editor::RefusedByAnalysis() {
  if (!program_.AnalysisRunning) return false;
  program_.ShowMessage(program_.Texts.Msg103, kOkCritical, "Edit Error");
  return true;
}

void Editor::LogNumbers(const char* what) {
  const BoardSet& set = program_.Set;
  program_.Log.WriteLine("   " + std::string(what) + ": " + std::to_string(set.FirstBoard) + "," +
                         std::to_string(set.LastBoard) + "," + std::to_string(set.CurrentBoard));
}

void Editor::Timer1EditTick() {
  if (program_.Link.Pending != LinkRequest::kDownload) return;
  const std::string path = std::exchange(program_.Link, {}).File;
  const std::string question = Fill(program_.Texts.Msg091, "***", path);
  if (program_.Ask(question, kYesNoExclamationNo, "Download New Firmware") == kYes)
    services_.Download(path);
}

}  // namespace morvane::edit
