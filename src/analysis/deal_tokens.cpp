#include "analysis/deal_tokens.h"

#include <algorithm>

namespace morvane::analysis {
namespace {

constexpr std::string_view kSuitLetters = "SHDC";
constexpr int kHandCards = kCards / kHands;

bool AreComplete(const Board& board) {
  for (int hand = kNorth; hand <= kWest; ++hand) {
    if (std::count(board.Cards.begin() + 1, board.Cards.end(), hand) != kHandCards) return false;
  }
  return true;
}

/// The card of a token, 0 for none.
int CardOfToken(std::string_view token) {
  const std::size_t suit = kSuitLetters.find(token[1]);
  return suit == std::string_view::npos ? 0 : CardOf(static_cast<int>(suit) + 1, token[2]);
}

}  // namespace

std::vector<std::string> DealTokens(const Board& board) {
  std::vector<std::string> tokens;
  if (!AreComplete(board)) return tokens;
  for (int card = 1; card <= kCards; ++card) {
    tokens.push_back({HandLetter(board.Cards[static_cast<std::size_t>(card)]),
                      kSuitLetters[static_cast<std::size_t>(CardSuit(card)) - 1],
                      CardLetter(card)});
  }
  return tokens;
}

bool ReadTokens(const std::vector<std::string>& tokens, Board& board) {
  constexpr std::size_t kLength = 3;
  constexpr std::string_view kHandLetters = "NESW";
  board = {};
  for (const std::string& token : tokens) {
    if (token.size() != kLength) return false;
    const std::size_t hand = kHandLetters.find(token[0]);
    if (hand == std::string_view::npos) return false;
    const int card = CardOfToken(token);
    if (card == 0 || !GiveCard(board, card, static_cast<int>(hand) + 1)) return false;
  }
  AnalyzeBoard(board);
  return AreComplete(board);
}

}  // namespace morvane::analysis
