#include "machine/dealing_run.h"

#include "machine/deal_hand.h"
#include "machine/hand_list.h"

namespace morvane::machine {

RunEnd DealingRun::RunOnce() { return DealHand(parts_, DealRotation()); }

std::string DealingRun::RefusalOfBoard() const {
  return CurrentBoard().Status == Board::kComplete ? "" : parts_.Prog.Texts.Msg053;
}

void DealingRun::AskAtEnd() {
  const int answer = parts_.Prog.Ask(parts_.Prog.Texts.Msg060, kYesNoQuestion, "Dealing");
  parts_.TheMachine.ForgetStarts();
  if (answer == kYes) parts_.Walk.BackToStart();
}

std::string DealingRun::MissingCardsText() const {
  const int dealt = kCards - CardsMissing(CurrentBoard(), parts_.Run.CardLog);
  return "      The machine has stopped without dealing all cards: " + std::to_string(dealt) +
         " of 52 cards of board " + std::to_string(parts_.Prog.Set.CurrentBoard) +
         " have been dealt.      \r\n\r\n"
         "      Please put the cards together and deal the board again.      ";
}

}  // namespace morvane::machine
