#include "model/board.h"

#include <algorithm>
#include <functional>
#include <numeric>
#include <string_view>

#include "model/shapes.h"

namespace morvane {
namespace {

using SuitLengths = std::array<std::size_t, kSuits>;

std::string ShapeName(SuitLengths lengths, std::string_view digits) {
  std::sort(lengths.begin(), lengths.end(), std::greater<>());
  std::string name;
  for (const std::size_t length : lengths) {
    if (length < digits.size()) name += digits[length];
  }
  return name;
}

}  // namespace

int AnalyzeBoard(Board& board) {
  std::array<SuitLengths, kHands + 1> lengths{};
  board.HandCount = {};
  board.Hcp = {};
  board.ShortPoints = {};
  board.Shape = {};
  int unassigned = 0;
  for (int card = 1; card <= kCards; ++card) {
    const std::uint8_t hand = board.Cards[static_cast<std::size_t>(card)];
    if (hand == 0) ++unassigned;
    if (hand == 0 || hand > kHands) continue;
    ++board.HandCount[hand];
    ++lengths[hand][static_cast<std::size_t>(CardSuit(card) - 1)];
    board.Hcp[hand] = static_cast<std::uint8_t>(board.Hcp[hand] + CardHcp(card));
  }
  int complete = 0;
  for (std::size_t hand = 1; hand <= kHands; ++hand) {
    if (board.HandCount[hand] != kRanks) continue;
    ++complete;
    for (const std::size_t length : lengths[hand]) {
      if (length < 3) {
        board.ShortPoints[hand] = static_cast<std::uint8_t>(board.ShortPoints[hand] + 3 - length);
      }
    }
    board.Shape[hand] =
        static_cast<std::uint8_t>(ShapeIndex(ShapeName(lengths[hand], "0123456789ABCD")));
  }
  board.Status = complete == kHands     ? Board::kComplete
                 : unassigned == kCards ? Board::kEmpty
                                        : Board::kIncomplete;
  return complete;
}

int CardsHeld(const Board& board) {
  return std::accumulate(board.HandCount.begin() + kNorth, board.HandCount.end(), 0);
}

std::string GetHandShape(const Board& board, int hand) {
  SuitLengths lengths{};
  for (int card = 1; card <= kCards; ++card) {
    if (board.Cards[static_cast<std::size_t>(card)] == hand) {
      ++lengths[static_cast<std::size_t>(CardSuit(card) - 1)];
    }
  }
  return ShapeName(lengths, "0123456789ABC");
}

int BoardDealer(const Board& board, int n) {
  return board.Dealer != 0 ? board.Dealer : DealerOfNumber(n);
}

int BoardVul(const Board& board, int n) { return board.Vul > 0 ? board.Vul : VulOfNumber(n); }

int CompareBoards(const Board& a, const Board& b) {
  if (!std::equal(a.Cards.begin() + 1, a.Cards.end(), b.Cards.begin() + 1)) return 0;
  return a.Number == b.Number && a.Dealer == b.Dealer && a.Vul == b.Vul ? 2 : 1;
}

bool GiveCard(Board& board, int card, int hand) {
  std::uint8_t& holder = board.Cards[static_cast<std::size_t>(card)];
  if (holder != 0) return false;
  holder = static_cast<std::uint8_t>(hand);
  return true;
}

Board NumberedBoard(int n) {
  Board board;
  board.Number = static_cast<std::int16_t>(n);
  board.Dealer = static_cast<std::uint8_t>(DealerOfNumber(n));
  board.Vul = static_cast<std::uint8_t>(VulOfNumber(n));
  return board;
}

Board NumberedBoard(int n, const Board& dealt) {
  Board board = NumberedBoard(n);
  board.Cards = dealt.Cards;
  AnalyzeBoard(board);
  return board;
}

HandCards FillHandCards(const Board& board) {
  HandCards hands{};
  for (int card = 1; card <= kCards; ++card) {
    const std::uint8_t hand = board.Cards[static_cast<std::size_t>(card)];
    if (hand == 0 || hand > kHands) continue;
    hands[hand][0][0] = static_cast<std::uint8_t>(hands[hand][0][0] + CardHcp(card));
    auto& suit = hands[hand][static_cast<std::size_t>(CardSuit(card))];
    suit[++suit[0]] = static_cast<std::uint8_t>(card);
  }
  return hands;
}

}  // namespace morvane
