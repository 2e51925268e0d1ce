#include "machine/display_hand.h"

#include "machine/board_run.h"
#include "model/national_letters.h"
#include "model/results.h"

namespace morvane::machine {

BoardDisplay DisplayHand(const BoardRun& run, int number) {
  const Board& board = run.CurrentBoard();
  BoardDisplay display;
  display.Board = " Board: " + std::to_string(number);
  if (run.Window().CopiesShown) {
    display.Copy = " Copy: " + std::to_string(run.Place().CurrentCopy()) + "/" +
                   std::to_string(run.Place().Range().NumberOfCopies);
  }
  display.VulNumber = BoardVul(board, number);
  display.DealerNumber = BoardDealer(board, number);
  display.Vul = "Vul: " + std::string(VulName[static_cast<std::size_t>(display.VulNumber)]);
  display.Dealer =
      "Dealer: " + std::string(HandName[static_cast<std::size_t>(display.DealerNumber)]);
  display.HandsShown = run.Window().ShowBoards;
  if (!display.HandsShown) return display;

  for (int card = 1; card <= kCards; ++card) {
    const std::size_t hand = board.Cards[static_cast<std::size_t>(card)];
    if (hand == 0) continue;
    display.Hands[hand][static_cast<std::size_t>(CardSuit(card))].push_back(
        {NationalLetter(run.Options().Cards.National, card),
         run.Cards().CardLog[wire::MachineCard::Of(card)] != 0});
  }
  for (std::size_t hand = kNorth; hand <= kWest; ++hand) {
    display.lblHCP[hand] = std::to_string(board.Hcp[hand]);
  }
  display.Tricks = board.Tricks;
  display.Analyzed = HasResults(board);
  return display;
}

}  // namespace morvane::machine
