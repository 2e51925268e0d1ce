#include "files/pbn_values.h"

#include "model/hand_text.h"
#include "text/box_text.h"
#include "text/text.h"
#include "text/text_encoding.h"

namespace morvane::files {
namespace {

constexpr std::string_view kTricksOfLevel = "1789abcd";

/// Where the character at `position` of the value stands in `Board::Tricks`.
std::size_t IndexOf(std::size_t position) {
  return TricksIndex(kTricksDeclarers[position / kDenominations], position % kDenominations);
}

std::string FormatHand(const Board& board, int hand) {
  std::string text = HandText(board, hand, ".");
  return text == "..." ? "-" : text;
}

std::size_t SkipSpaces(std::string_view value, std::size_t at) {
  while (at < value.size() && value[at] == ' ') ++at;
  return at;
}

/// Reads one hand from `at` on, up to a space or the end.
std::string ParseHand(std::string_view value, std::size_t& at, int hand, Board& board,
                      const Messages& texts) {
  int suit = 1;
  for (; at < value.size() && value[at] != ' '; ++at) {
    if (value[at] == '.') {
      if (++suit > kSuits) return texts.Msg029;
      continue;
    }
    const int card = CardOf(suit, UpperLetter(value[at]));
    if (card == 0) return Fill(texts.Msg027, "***", CharacterAt(value, at));
    if (!GiveCard(board, card, hand)) return Fill(texts.Msg028, "***", value.substr(at, 1));
  }
  return {};
}

/// The level 0..7 of a tricks character, -1 for any other character.
int LevelOf(char c) {
  if (c >= '0' && c <= '6') return 0;
  if (c >= '7' && c <= '9') return c - '6';
  const char letter = UpperLetter(c);
  return letter >= 'A' && letter <= 'D' ? letter - 'A' + 4 : -1;
}

}  // namespace

std::string FormatPbnDeal(const Board& board, int dealer) {
  std::string text{HandLetter(dealer), ':'};
  for (int i = 0, hand = dealer; i < kHands; ++i, hand = NextHand(hand)) {
    if (i > 0) text += ' ';
    text += FormatHand(board, hand);
  }
  return text;
}

std::string ParsePbnDeal(std::string_view value, Board& board, const Messages& texts) {
  constexpr int kMostHands = 5;  // the fifth goes to the first hand again: required
  int hand = value.empty() ? 0 : HandOfLetter(value[0]);
  if (hand == 0) return Fill(texts.Msg027, "***", CharacterAt(value, 0));
  if (value.size() < 2 || value[1] != ':') return Fill(texts.Msg023, "***", ":");

  std::size_t at = SkipSpaces(value, 2);
  for (int hands = 0; at < value.size(); hand = NextHand(hand)) {
    if (value[at] == '-') {
      ++at;
    } else if (auto error = ParseHand(value, at, hand, board, texts); !error.empty()) {
      return error;
    }
    at = SkipSpaces(value, at);
    if (++hands > kMostHands) return texts.Msg030;
  }
  return {};
}

std::string FormatPbnTricks(const Board& board) {
  std::string text;
  for (std::size_t i = 0; i < kResults; ++i) text += kTricksOfLevel[board.Tricks[IndexOf(i)]];
  return text;
}

std::string ParsePbnTricks(std::string_view value, Board& board, const Messages& texts) {
  if (CharacterCount(value) != kResults) return texts.Msg031;
  std::string error;
  for (std::size_t i = 0, at = 0; i < kResults; ++i) {
    const std::string_view character = CharacterAt(value, at);
    const int level = LevelOf(character[0]);
    // The last of several faults is the one told: required.
    if (level < 0) error = Fill(texts.Msg027, "***", character);
    board.Tricks[IndexOf(i)] = static_cast<std::uint8_t>(level < 0 ? 0 : level);
    at += character.size();
  }
  return error;
}

}  // namespace morvane::files
