#include "cli/diagram.h"

#include <array>
#include <string_view>

#include "text/columns.h"
#include "text/suit_signs.h"

namespace morvane::cli {
namespace {

constexpr std::size_t kColumn = 18;

using HandLines = std::array<std::string, 5>;  // the name, then a line a suit

HandLines LinesOf(const HandCards& hands, std::size_t hand) {
  HandLines lines;
  lines[0] = std::string(HandName[hand]) + " (" + std::to_string(hands[hand][0][0]) + ")";
  for (std::size_t suit = 1; suit <= kSuits; ++suit) {
    const auto& cards = hands[hand][suit];
    std::string ranks;
    for (std::size_t i = 1; i <= cards[0]; ++i) ranks += CardLetter(cards[i]);
    lines[suit] = std::string(SuitSigns[suit]) + " " + (ranks.empty() ? "-" : ranks);
  }
  return lines;
}

void AddInTheMiddle(std::string& text, const HandLines& lines) {
  for (const std::string& line : lines) text += std::string(kColumn, ' ') + line + "\n";
}

}  // namespace

std::string BoardDiagram(const Board& board, int n) {
  const HandCards hands = FillHandCards(board);
  const auto dealer = static_cast<std::size_t>(BoardDealer(board, n));
  const auto vul = static_cast<std::size_t>(BoardVul(board, n));
  std::string text = "Board " + std::to_string(n) + "   Dealer: " + std::string(HandName[dealer]) +
                     "   Vul: " + std::string(VulName[vul]);
  if (board.Status == Board::kEmpty) return text + "   (empty)\n";
  text += board.Status == Board::kIncomplete ? "   (incomplete)\n" : "\n";
  AddInTheMiddle(text, LinesOf(hands, kNorth));
  const HandLines west = LinesOf(hands, kWest);
  const HandLines east = LinesOf(hands, kEast);
  for (std::size_t i = 0; i < west.size(); ++i) {
    text += LeftAligned(west[i] + " ", kColumn) + std::string(kColumn, ' ') + east[i] + "\n";
  }
  AddInTheMiddle(text, LinesOf(hands, kSouth));
  return text;
}

}  // namespace morvane::cli
