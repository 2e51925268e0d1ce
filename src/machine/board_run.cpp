#include "machine/board_run.h"

#include "program/setting_keys.h"
#include "text/text.h"

namespace morvane::machine {

void BoardRun::OpenParts() {
  const Settings& store = parts_.Prog.Store;
  RunWindowState& window = parts_.Window;
  window.CopiesShown = Kind() == RunKind::kDeal && store.IsOn(kDealCopy);
  window.SubRangeShown = store.IsOn(kDealSub);
  window.ShowBoards = store.IsOn(kDealShow);
  parts_.Walk.Open(window.CopiesShown, window.SubRangeShown);
  Controls().FollowCopy(parts_.Walk);
}

void BoardRun::EnableAtContact() {
  Controls().cmdFirst = Controls().cmdPrev = true;
  // Required: looks at the number of the last board, not at how many boards there are.
  Controls().cmdNext = Controls().cmdLast = parts_.Walk.Range().RunLast > 1;
  Controls().cmdDeal = true;
  Controls().Deal_next = false;
}

void BoardRun::EnableAfterRun() {
  FollowPlace();
  Controls().cmdDeal = true;
}

void BoardRun::FollowPlace() {
  Controls().FollowBoard(parts_.Walk);
  Controls().FollowCopy(parts_.Walk);
}

void BoardRun::StartFromMachine() {
  if (Controls().Deal_next) {
    Deal_next();
  } else {
    cmdDeal();
  }
}

// The buttons and number boxes.

void BoardRun::cmdDeal() {
  if (!Controls().cmdDeal || Running() || !TypedIsTaken()) return;
  parts_.Run.ClearCardLog();
  const std::string refusal = RefusalOfBoard();
  if (!refusal.empty()) {
    ShowError(refusal);
  } else if (parts_.Options.StartGatesPass()) {
    RunCards();
  }
}

void BoardRun::Deal_next() {
  const std::int16_t dealt = parts_.Prog.Set.CurrentBoard;
  if (!Controls().Deal_next || Running() || !TypedIsTaken()) return;
  if (parts_.Prog.Set.CurrentBoard != dealt) {  // the range has moved on to another board
    cmdDeal();
    return;
  }
  if (!Controls().Deal_next) return;  // it ends with the board just dealt
  BeforeNext();
  ForgetCards();
  parts_.Walk.NextBoardStep();
  FollowPlace();
  ShowAll();
  cmdDeal();
}

void BoardRun::Walk(BoardWalk::Step step) {
  if (Running()) return;
  TakeTyped();
  if (!Controls().Allows(step)) return;
  ForgetCards();
  parts_.Walk.Take(step);
  if (step == BoardWalk::Step::kPrevCopy || step == BoardWalk::Step::kNextCopy) {
    Controls().FollowCopy(parts_.Walk);
  } else {
    Controls().FollowBoard(parts_.Walk);
  }
  AfterWalk(step);
  ShowAll();
}

void BoardRun::SetNumberCopies(const std::string& text) {
  if (Busy() || Kind() != RunKind::kDeal) return;
  parts_.Walk.SetCopies(Val(text));
  FollowEnd();
  Controls().FollowCopy(parts_.Walk);
  ShowAll();
}

void BoardRun::LeaveSubfrom(const std::string& text) { LeaveRangeBox(&BoardWalk::SetFirst, text); }

void BoardRun::LeaveSubto(const std::string& text) { LeaveRangeBox(&BoardWalk::SetLast, text); }

void BoardRun::LeaveRangeBox(bool (BoardWalk::*set)(int), const std::string& text) {
  if (Busy()) return;
  if ((parts_.Walk.*set)(Val(text))) ForgetCards();
  FollowEnd();
  FollowPlace();
  ShowAll();
}

void BoardRun::TakeTyped() {
  const auto texts = parts_.View->Range();
  if (!texts) return;
  const RunMemory before = parts_.Walk.Range();
  if (Val(texts->Subfrom) != before.RunFirst) LeaveSubfrom(texts->Subfrom);
  if (Val(texts->Subto) != before.RunLast) LeaveSubto(texts->Subto);
}

/// Why what is being typed cannot be taken as it stands; empty when it can.
std::string BoardRun::RefusalOfTyped() const {
  const auto texts = parts_.View->Range();
  if (!texts) return "";
  const RunMemory& range = parts_.Walk.Range();
  const BoardSet& set = parts_.Prog.Set;
  const int first = Val(texts->Subfrom);
  const int last = Val(texts->Subto);
  const auto isNew = [](int number, int now, int low, int high) {
    return number != now && (number < low || number > high);
  };
  if (isNew(first, range.RunFirst, set.FirstBoard, set.LastBoard)) {
    return RangeRefusal("first", texts->Subfrom, set.FirstBoard, set.LastBoard, range.RunFirst);
  }
  if (isNew(last, range.RunLast, first, set.LastBoard)) {
    return RangeRefusal("last", texts->Subto, first, set.LastBoard, range.RunLast);
  }
  return "";
}

/// `which` board of the range was typed as `text`, which is not within `low`..`high`, and stays
/// `now`.
std::string BoardRun::RangeRefusal(const std::string& which, const std::string& text, int low,
                                   int high, int now) const {
  return "      The " + which + " board to " + std::string(Words().Deal) + " must be from " +
         std::to_string(low) + " to " + std::to_string(high) + ", not " +
         (text.empty() ? "empty" : text) + ".      \r\n\r\n      It stays " + std::to_string(now) +
         ". Nothing has been " + std::string(Words().Dealt) + ".      ";
}

bool BoardRun::TypedIsTaken() {
  const std::string refusal = RefusalOfTyped();
  if (refusal.empty()) {
    TakeTyped();
    return true;
  }
  parts_.View->ShowControls();  // the range as it stays
  ShowError(refusal);
  return false;
}

void BoardRun::Disp_boards() {
  if (!Running()) TakeTyped();
  parts_.Window.ShowBoards = !parts_.Window.ShowBoards;
  ShowAll();
}

/// A run that ends with the board just dealt has no next one.
void BoardRun::FollowEnd() {
  if (parts_.Walk.AtEnd()) Controls().Deal_next = false;
}

/// What was dealt belongs to another board now.
void BoardRun::ForgetCards() {
  parts_.Run.ClearCardLog();
  Controls().Deal_next = false;
}

// The end of a board.

std::string BoardRun::LogHead() const { return ThreeDigits(parts_.Prog.Set.CurrentBoard) + " : "; }

std::string BoardRun::Name() const {
  std::string board = "Board " + std::to_string(parts_.Prog.Set.CurrentBoard);
  if (!parts_.Window.CopiesShown || parts_.Walk.Range().NumberOfCopies < 2) return board;
  return board + ", copy " + std::to_string(parts_.Walk.CurrentCopy());
}

int BoardRun::Left() const {
  const int behind =
      LeftBehind(parts_.Walk.Range(), parts_.Prog.Set.CurrentBoard, parts_.Walk.CurrentCopy());
  const bool done = LastOutcome() == Outcome::kDone && History().HasJustDone(Name());
  return done ? behind : behind + 1;
}

void BoardRun::Finish(RunEnd end) {
  if (end == RunEnd::kDone) FinishBoard();
  if (end == RunEnd::kIncomplete) TellOfMissingCards();
}

void BoardRun::FinishBoard() {
  AnalyzeBoard(parts_.Prog.Set.Current());
  Controls().Deal_next = !parts_.Walk.AtEnd();
  if (!parts_.Walk.AtEnd() || parts_.Run.Leaving()) return;
  parts_.View->ShowState();
  AskAtEnd();
}

void BoardRun::TellOfMissingCards() {
  if (parts_.Run.Leaving()) return;
  parts_.View->ShowState();
  parts_.View->ShowBoard();
  ShowError(MissingCardsText());
}

void BoardRun::ShowError(const std::string& text) {
  ShowRunError(parts_.Prog, parts_.TheMachine, text, Words().Error);
}

}  // namespace morvane::machine
