#pragma once

#include <algorithm>
#include <string>

#include "files/failure_reports.h"
#include "support.h"

namespace morvane::files {

/// Whatever is not on the cards follows from board `n`'s number and its cards.
inline void RequireBoard(const BoardSet& set, int n) {
  const Board& board = set.At(n);
  Board expected = NumberedBoard(n);
  expected.Cards = board.Cards;
  AnalyzeBoard(expected);
  Require(board == expected);
  Require(std::all_of(board.Cards.begin(), board.Cards.end(),
                      [](std::uint8_t hand) { return hand <= kWest; }));
}

/// Boards 1 to the last one are numbered by their place, complete or not, and no other is there.
inline void RequireNumberedByPlace(const BoardSet& set) {
  Require(set.FirstBoard == 1 && set.LastBoard <= kMaxBoards);
  Require(set.At(0) == Board{});
  for (int n = 1; n <= set.LastBoard; ++n) RequireBoard(set, n);
  for (int n = set.LastBoard + 1; n <= kMaxBoards; ++n) Require(set.At(n) == Board{});
}

/// `again` holds the boards of `set`, which were in a PBN file.
inline void RequireSameBoards(const BoardSet& set, const BoardSet& again) {
  Require(again.FirstBoard == set.FirstBoard && again.LastBoard == set.LastBoard);
  for (int n = set.FirstBoard; n <= set.LastBoard; ++n) {
    Require(again.At(n).Cards == set.At(n).Cards && again.At(n).Tricks == set.At(n).Tricks);
    Require(again.At(n).Dealer == BoardDealer(set.At(n), n));
    Require(again.At(n).Vul == BoardVul(set.At(n), n));
  }
}

inline void RequireFormatError(const FormatFault& fault) {
  const std::string told = FaultText(fault);
  Require(told.starts_with("      File format error     \r\n"));
  Require(told.ends_with("\r\n\r\n      Load operation aborted!      "));
}

}  // namespace morvane::files
