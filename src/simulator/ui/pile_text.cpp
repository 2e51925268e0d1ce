#include "simulator/ui/pile_text.h"

#include <algorithm>
#include <iterator>

#include "model/tables.h"
#include "platform/qt/suit_text.h"

namespace morvane::simulator {
namespace {

constexpr std::size_t kUpperCards = 10;
const char* const kJoker = "JK";

QString CountText(const std::vector<int>& cards) {
  return "<b>" + QString::number(cards.size()) + "</b>";
}

/// "AK4", or how many they are where a sort has put them: "×52".
QString RanksText(const std::vector<int>& cards, std::size_t suit, bool counted) {
  std::vector<int> ranks;
  std::copy_if(cards.begin(), cards.end(), std::back_inserter(ranks), [suit](int card) {
    return card != 0 && static_cast<std::size_t>(CardSuit(card)) == suit;
  });
  if (ranks.empty()) return QString::fromUtf8("–");
  if (counted) return QString::fromUtf8("×%1").arg(ranks.size());
  std::sort(ranks.begin(), ranks.end());
  QString text;
  for (const int card : ranks) text += QChar(CardLetter(card));
  return text;
}

}  // namespace

QString CardText(int card) {
  if (card == 0) return kJoker;
  return SuitSign(static_cast<std::size_t>(CardSuit(card))) + QChar(CardLetter(card));
}

QString CardsInOrder(const std::vector<int>& cards, const QPalette& palette) {
  QString text;
  for (const int card : cards) text += (text.isEmpty() ? "" : " ") + CardText(card);
  return ColouredSuits(text, palette);
}

QString PileBySuits(const std::vector<int>& cards, bool counted, const QPalette& palette) {
  QString text = CountText(cards);
  for (std::size_t suit = 1; suit <= kSuits; ++suit) {
    text += "&nbsp;&nbsp; " + ColouredSuits(SuitSign(suit), palette) + "&nbsp;" +
            RanksText(cards, suit, counted);
  }
  return text;
}

QString PileFromTop(const std::vector<int>& cards, const QPalette& palette) {
  const std::size_t shown = std::min(cards.size(), kUpperCards);
  const std::vector<int> upper(cards.rbegin(), cards.rbegin() + static_cast<std::ptrdiff_t>(shown));
  QString text = CountText(cards);
  if (shown > 0) text += "&nbsp;&nbsp; " + CardsInOrder(upper, palette);
  if (shown < cards.size()) text += QString::fromUtf8(" …");
  return text;
}

}  // namespace morvane::simulator
