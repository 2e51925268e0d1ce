#include "maintenance/test_deck.h"

namespace morvane::maintenance {
namespace {

using End = TestDeal::End;

std::string OnItsWay(const TestDeal& deal) {
  if (deal.TestDealCancelled()) return "Stopping the machine ...";
  return "Card " + std::to_string(deal.ExpectedNumber()) + " of " + std::to_string(kCards);
}

std::string FailureState(const TestDeal& deal) {
  std::string text = "Stopped at card " + std::to_string(deal.ExpectedNumber()) + ", error " +
                     std::to_string(deal.TestStatusByte()) + ": expected " + deal.ExpectedCard();
  if (!deal.SeenCard().empty()) text += ", seen " + deal.SeenCard();
  return text;
}

}  // namespace

DeckMark MarkOf(const TestDeal& deal, int number) {
  if (deal.TestDealFailed() && number == deal.ExpectedNumber()) return DeckMark::kExpected;
  if (number == deal.SeenNumber()) return DeckMark::kTakenFor;
  return number <= deal.CardsDealt() ? DeckMark::kSeen : DeckMark::kAhead;
}

std::string StateText(const TestDeal& deal) {
  const std::string cards = std::to_string(deal.CardsDealt()) + " cards";
  switch (deal.Result()) {
    case End::kNotYet:
      return OnItsWay(deal);
    case End::kRanOut:
      return "OK, " + cards;
    case End::kCancelled:
      return "Cancelled after " + cards;
    case End::kFailed:
      return FailureState(deal);
    case End::kDeclined:
      return "Error " + std::to_string(deal.TestStatusByte()) + " after " + cards;
    case End::kLinkLost:
      return "The link was lost after " + cards;
  }
  return "";
}

}  // namespace morvane::maintenance
