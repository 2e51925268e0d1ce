#include "cli/console_boards.h"

#include "text/columns.h"
#include "text/text.h"

namespace morvane::cli {
namespace {

std::string BoardText(int number) { return "Board " + RightAligned(std::to_string(number), 3); }

}  // namespace

void ConsoleBoards::Prepare() {
  if (request_.To) run_.LeaveSubto(std::to_string(*request_.To));
  if (request_.From) run_.LeaveSubfrom(std::to_string(*request_.From));
  if (request_.Copies) run_.SetNumberCopies(std::to_string(*request_.Copies));
  if (request_.ReadMode) run_.Change(&machine::RunOptions::UseReadMode, *request_.ReadMode);
}

void ConsoleBoards::Start() {
  if (More()) {
    run_.Deal_next();
  } else {
    run_.cmdDeal();
  }
}

std::string ConsoleBoards::Coming() const {
  // The run moves on only when the next board is started.
  const bool movesOn = More() && run_.Place().AtLastCopy();
  return "board " + std::to_string(set_.CurrentBoard + (movesOn ? 1 : 0));
}

std::string ConsoleBoards::Progress() const {
  return BoardText(set_.CurrentBoard) + "  " + std::to_string(CardsFallen()) + " of 52 cards  " +
         run_.Cards().txtDealTime + " s";
}

void ConsoleBoards::Note(bool ok) {
  const RunBoard board{.Number = set_.CurrentBoard,
                       .Copy = run_.Place().CurrentCopy(),
                       .Seconds = run_.Cards().Seconds(),
                       .Ok = ok,
                       .Pockets = side_.Judge ? side_.Judge(run_.CurrentBoard()) : Verdict{}};
  terminal_.Out(BoardText(board.Number) + "  " + FixedPoint(board.Seconds, 1) + " s  " +
                (ok ? "OK" : "stopped") + "\n");
  report_.Boards.push_back(board);
}

}  // namespace morvane::cli
