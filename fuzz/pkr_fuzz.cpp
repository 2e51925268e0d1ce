#include <algorithm>
#include <cstdint>
#include <string>

#include "poker/pkr_file.h"
#include "support.h"

namespace {

using namespace morvane;
using namespace morvane::poker;

bool IsCardOrEmpty(std::uint8_t slot) { return slot <= 55; }

bool SameTexts(const PokerOrder& a, const PokerOrder& b) {
  return a.Poker_Event == b.Poker_Event && a.Poker_Site == b.Poker_Site &&
         a.Poker_Date == b.Poker_Date;
}

void RequireSound(const PokerOrder& order) {
  for (const PokerDeal& deal : order.PokerDeals) {
    Require(deal[0] == 0 && std::all_of(deal.begin(), deal.end(), IsCardOrEmpty));
  }
  Require(order.PokerDeals[0] == PokerDeal{});
}

/// What was read is written and read again; control characters in the texts are blanks then.
void RequireSameAfterRoundTrip(const PokerOrder& order) {
  const std::string bytes = PokerFileBytes(order);
  PokerOrder again;
  Require(ReadPokerFile(bytes, again));
  Require(again.PokerDealCount == order.PokerDealCount && again.PokerDeals == order.PokerDeals);
  PokerOrder third;
  Require(ReadPokerFile(PokerFileBytes(again), third));
  Require(SameTexts(again, third) && PokerFileBytes(third) == PokerFileBytes(again));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  PokerOrder order;
  const bool right = ReadPokerFile(std::string(data, data + size), order);
  RequireSound(order);
  Require(right == (order.PokerDealCount != 0) && order.PokerDealCount <= kMostDeals);
  if (right) RequireSameAfterRoundTrip(order);
  return 0;
}
