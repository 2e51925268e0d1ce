#include "cli/console_boards.h"

#include "text/columns.h"
#include "text/text.h"

namespace morvane::cli {
namespace {

/// The first copy needs no number.
std::string BoardText(int number, int copy) {
  const std::string text = "Board " + RightAligned(std::to_string(number), 3);
  return copy > 1 ? text + "/" + std::to_string(copy) : text;
}

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
  const machine::BoardWalk& place = run_.Place();
  if (!More()) return "board " + std::to_string(set_.CurrentBoard);
  if (place.AtLastCopy()) return "board " + std::to_string(set_.CurrentBoard + 1);
  return "board " + std::to_string(set_.CurrentBoard) + ", copy " +
         std::to_string(place.CurrentCopy() + 1);
}

std::string ConsoleBoards::Progress() const {
  return BoardText(set_.CurrentBoard, run_.Place().CurrentCopy()) + "  " +
         std::to_string(CardsFallen()) + " of 52 cards  " + run_.Cards().txtDealTime + " s";
}

void ConsoleBoards::Note(bool ok) {
  const RunBoard board{.Number = set_.CurrentBoard,
                       .Copy = run_.Place().CurrentCopy(),
                       .Seconds = run_.Cards().Seconds(),
                       .Ok = ok,
                       .Pockets = side_.Judge ? side_.Judge(run_.CurrentBoard()) : Verdict{}};
  terminal_.Out(BoardText(board.Number, board.Copy) + "  " + FixedPoint(board.Seconds, 1) + " s  " +
                (ok ? "OK" : "stopped") + "\n");
  report_.Boards.push_back(board);
}

}  // namespace morvane::cli
