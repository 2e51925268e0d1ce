#include "edit/board_text.h"

#include "model/hand_text.h"
#include "text/text.h"

namespace morvane::edit {
namespace {

std::uint8_t& HolderOf(Board& board, int card) {
  return board.Cards[static_cast<std::size_t>(card)];
}

std::string LettersHeldBy(const Board& board, int hand, int suit) {
  std::string text;
  for (const char letter : CardLetters) {
    if (board.Cards[static_cast<std::size_t>(CardOf(suit, letter))] == hand) text += letter;
  }
  return text;
}

}  // namespace

std::string SuitText(const Board& board, int box) {
  return LettersHeldBy(board, HandOfBox(box), SuitOfBox(box));
}

std::string MissingText(const Board& board, int suit) { return LettersHeldBy(board, 0, suit); }

void ParseSuit(Board& board, int box, std::string_view text) {
  const auto hand = static_cast<std::uint8_t>(HandOfBox(box));
  const int suit = SuitOfBox(box);
  for (const char letter : CardLetters) {
    std::uint8_t& holder = HolderOf(board, CardOf(suit, letter));
    if (holder == hand) holder = 0;
  }
  for (const char letter : UpperCase(text)) {
    if (const int card = CardOf(suit, letter); card != 0) HolderOf(board, card) = hand;
  }
}

std::string CountText(int cards) {
  const std::string count = std::to_string(cards);
  if (cards == kRanks) return count + " \u2713";
  const bool few = cards < kRanks;
  return count + " \u2717 " + std::to_string(few ? kRanks - cards : cards - kRanks) +
         (few ? " missing" : " too many");
}

std::string HandLine(const Board& board, int hand) {
  return std::string{HandLetter(hand)} + ": " + HandText(board, hand, ".");
}

}  // namespace morvane::edit
