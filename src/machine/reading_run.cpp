#include "machine/reading_run.h"

#include "machine/read_hand.h"

namespace morvane::machine {
namespace {

void Clear(Board& board) {
  board.Cards = {};
  board.Tricks = {};
  AnalyzeBoard(board);
}

}  // namespace

void ReadingRun::OpenParts() {
  BoardRun::OpenParts();
  parts_.Window.ReadModesShown = true;
  parts_.Walk.WithoutCopies();
}

void ReadingRun::EnableAtContact() {
  BoardRun::EnableAtContact();
  FollowStatus();
}

void ReadingRun::FollowPlace() {
  BoardRun::FollowPlace();
  FollowStatus();
}

void ReadingRun::FollowStatus() { Controls().cmdClear = CurrentBoard().Status != Board::kEmpty; }

std::string ReadingRun::RefusalOfBoard() const {
  return CurrentBoard().Status == Board::kEmpty ? "" : parts_.Prog.Texts.Msg054;
}

/// Reading can go on past the end of the range; past the end of the set, the set grows with it.
void ReadingRun::BeforeNext() {
  if (!parts_.Walk.AtLastBoard() || !parts_.Walk.Grow()) return;
  parts_.Prog.Set.BoardSetChanged = "1";
}

void ReadingRun::AfterWalk(BoardWalk::Step step) {
  FollowStatus();
  const bool back = step == BoardWalk::Step::kFirst || step == BoardWalk::Step::kPrev;
  if (back && parts_.Walk.AtLastBoard()) Controls().Deal_next = true;
}

void ReadingRun::cmdClear() {
  if (!Controls().cmdClear || Busy()) return;
  TakeTyped();
  if (!Controls().cmdClear) return;  // it has led to an empty board
  parts_.View->ShowBoard();
  {
    const LinkHold hold(parts_.TheMachine);
    const int answer = parts_.Prog.Ask(parts_.Prog.Texts.Msg052, kYesNoQuestion, "Clear Board");
    parts_.TheMachine.ForgetStarts();
    if (answer != kYes) return;
  }
  Clear(parts_.Prog.Set.Current());
  parts_.Prog.Set.BoardSetChanged = "1";
  parts_.Run.ClearCardLog();
  Controls().cmdClear = false;
  ShowAll();
}

RunEnd ReadingRun::RunOnce() { return ReadHand(parts_, DealRotation()); }

void ReadingRun::Finish(RunEnd end) {
  if (keep_ && !parts_.Run.Leaving() && keep_()) parts_.TheMachine.ForgetStarts();
  if (end == RunEnd::kDone && CurrentBoard().Status != Board::kComplete) TellOfUnknownCards();
  BoardRun::Finish(end);
}

/// The board counts as read; whether it is read again or completed by hand is the operator's.
void ReadingRun::TellOfUnknownCards() {
  if (parts_.Run.Leaving()) return;
  parts_.View->ShowBoard();
  ShowError("      Not all cards were recognised: " + std::to_string(CardsHeld(CurrentBoard())) +
            " of 52 cards of board " + std::to_string(parts_.Prog.Set.CurrentBoard) +
            " have been read.      \r\n\r\n"
            "      Please clear the board and read it again, or complete it in the editor.      ");
}

void ReadingRun::AskAtEnd() {
  parts_.View->ShowBoard();
  const int answer = parts_.Prog.Ask(parts_.Prog.Texts.Msg061, kYesNoQuestion, "Reading");
  parts_.TheMachine.ForgetStarts();
  if (answer == kYes) save_();
}

std::string ReadingRun::MissingCardsText() const {
  if (CardsHeld(CurrentBoard()) == kCards) {
    return "      The cards of board " + std::to_string(parts_.Prog.Set.CurrentBoard) +
           " that have been read are not those that the machine has counted.      \r\n\r\n"
           "      Please put the cards together, clear the board and read it again.      ";
  }
  return "      The machine has stopped without reading all cards: " +
         std::to_string(CardsHeld(CurrentBoard())) + " of 52 cards of board " +
         std::to_string(parts_.Prog.Set.CurrentBoard) +
         " have been read.      \r\n\r\n"
         "      Please put the cards together, clear the board and read it again.      ";
}

}  // namespace morvane::machine
