#include "machine/board_words.h"

#include <array>

#include "text/text.h"

namespace morvane::machine {
namespace {

constexpr std::array<const char*, kSuits + 1> kSuitWords{"", "spades", "hearts", "diamonds",
                                                         "clubs"};

std::string Heading(const BoardDisplay& display) {
  std::string words;
  for (const std::string& part : {display.Board, display.Copy, display.Vul, display.Dealer}) {
    if (!part.empty()) words += (words.empty() ? "" : ", ") + Trim(part);
  }
  return words + ".";
}

std::string Letters(const BoardDisplay::Suit& cards, bool undealtOnly) {
  std::string letters;
  for (const BoardDisplay::Card& card : cards) {
    if (!undealtOnly || !card.Dealt) letters.append(" ").append(card.Letter);
  }
  return letters;
}

/// "spades A K 4, hearts Q"; suits without a card are left out.
std::string CardsOf(const BoardDisplay& display, std::size_t hand, bool undealtOnly) {
  std::string words;
  for (std::size_t suit = 1; suit <= kSuits; ++suit) {
    const std::string letters = Letters(display.Hands[hand][suit], undealtOnly);
    if (letters.empty()) continue;
    words.append(words.empty() ? "" : ", ").append(kSuitWords[suit]).append(letters);
  }
  return words;
}

std::string HandInWords(const BoardDisplay& display, std::size_t hand) {
  const std::string cards = CardsOf(display, hand, false);
  std::string words = std::string(HandName[hand]) + ": " + (cards.empty() ? "no cards" : cards);
  const std::string undealt = CardsOf(display, hand, true);
  if (!undealt.empty()) words += "; not dealt: " + undealt;
  return words + ".";
}

std::string Analysis(const BoardDisplay& display) {
  if (!display.Analyzed) return "Analysis has not been completed for this board.";
  std::string words = "Tricks in no-trump, spades, hearts, diamonds, clubs:";
  for (const int hand : {kNorth, kSouth, kEast, kWest}) {
    words.append(hand == kNorth ? " " : "; ").append(HandName[static_cast<std::size_t>(hand)]);
    for (std::size_t strain = 0; strain <= kSuits; ++strain) {
      words += " " + std::to_string(display.Tricks[TricksIndex(hand, strain)]);
    }
  }
  return words + ".";
}

}  // namespace

std::string BoardInWords(const BoardDisplay& display) {
  std::string words = Heading(display);
  if (!display.HandsShown) return words;
  for (std::size_t hand = kNorth; hand <= kWest; ++hand) words += " " + HandInWords(display, hand);
  return words + " " + Analysis(display);
}

std::string BoardUnderWayInWords(const BoardDisplay& display) {
  return Heading(display) + (display.HandsShown ? " The cards are under way, face down." : "");
}

}  // namespace morvane::machine
