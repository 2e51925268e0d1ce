#include "poker/pile_plan.h"

#include <algorithm>
#include <span>

namespace morvane::poker {
namespace {

using wire::MachineCard;

constexpr std::size_t kInSouth = PocketOfHand[kSouth];
constexpr std::size_t kInWest = PocketOfHand[kWest];
constexpr std::size_t kInEast = PocketOfHand[kEast];
constexpr std::size_t kInNorth = PocketOfHand[kNorth];
constexpr std::size_t kShortPile = 10;
constexpr std::size_t kNorthPlanned = 55;
constexpr std::size_t kNorthDealt = 27;

/// The highest slot of `deal` that holds `card`; 0: none does.
int SlotOf(const PokerDeal& deal, std::uint8_t card) {
  for (std::size_t slot = kSlots; slot > 0; --slot) {
    if (deal[slot] == card) return static_cast<int>(slot);
  }
  return 0;
}

/// The cards of the feeder that run 2..4 takes.
std::span<const std::uint8_t> Fed(const PilePlan::LongPile& feeder, int run) {
  return std::span(feeder).subspan(1, static_cast<std::size_t>(PilePlan::CardsOfRun(run)));
}

}  // namespace

std::size_t PocketOfSlot(int run, int slot) {
  constexpr std::array kByDigit{kInEast, kInWest, kInSouth};
  constexpr std::array kStep{1, 3, 9};
  if (run == kRuns || slot == 0) return kInNorth;
  // One slot more than three digits can tell apart: it goes ahead of the others.
  if (slot == kSlots && run > 1) return kInNorth;
  const int digit = (slot - 1) / kStep[static_cast<std::size_t>(run) - 1] % 3;
  return kByDigit[static_cast<std::size_t>(digit)];
}

int PilePlan::CardsOfRun(int run) {
  constexpr std::array kCardsOf{kCards, kSlots, kSlots - 1, kSlots - 1};
  return kCardsOf[static_cast<std::size_t>(run) - 1];
}

void PilePlan::Begin(int run, const PokerDeal& deal) {
  const LongPile feeder = FeedSequence;
  Clear();
  if (run == 1) {
    BeginFirst(deal);
    return;
  }
  FeedSequence = feeder;
  for (const std::uint8_t card : Fed(feeder, run)) {
    if (card == 0) continue;
    RouteTable[MachineCard(card)] =
        static_cast<std::uint8_t>(PocketOfSlot(run, SlotOf(deal, card)));
  }
  Expect(CardsOfRun(run));
}

void PilePlan::BeginFirst(const PokerDeal& deal) {
  for (std::uint8_t card = 1; card <= MachineCard::kLast; ++card) {
    const int slot = SlotOf(deal, card);
    RouteTable[MachineCard(card)] = static_cast<std::uint8_t>(PocketOfSlot(1, slot));
    if (slot == 0) PushPile(PileN, kNorthPlanned, card);
  }
}

void PilePlan::BeginReading() {
  Clear();
  std::fill_n(RouteTable.Bytes.begin(), kCards, std::uint8_t{kInNorth});
}

/// The machine feeds from the bottom, so the top card comes last.
void PilePlan::Expect(int count) {
  ExpectedOrder.Bytes.fill(kNotExpected);
  for (int place = 1; place <= count; ++place) {
    const std::uint8_t card = FeedSequence[static_cast<std::size_t>(place)];
    if (card != 0) ExpectedOrder[MachineCard(card)] = static_cast<std::uint8_t>(count + 1 - place);
  }
}

void PilePlan::Rebuild(const wire::CardBytes& log, int count) {
  PileN = {};
  PileE = PileW = PileS = {};
  for (int number = 1; number <= count; ++number) {
    const auto at = std::find(log.Bytes.begin(), log.Bytes.end(), number);
    if (at == log.Bytes.end()) continue;
    const MachineCard card(static_cast<int>(at - log.Bytes.begin()) + 1);
    Push(RouteTable[card], kNorthDealt, static_cast<std::uint8_t>(card.Number()));
  }
}

void PilePlan::Push(std::size_t pocket, std::size_t mostInNorth, std::uint8_t card) {
  switch (pocket) {
    case kInNorth:
      PushPile(PileN, mostInNorth, card);
      break;
    case kInEast:
      PushPile(PileE, kShortPile, card);
      break;
    case kInWest:
      PushPile(PileW, kShortPile, card);
      break;
    default:
      PushPile(PileS, kShortPile, card);
  }
}

std::array<int, 3> PilePlan::Carried(int run) {
  return {run == 1 ? 10 : 9, 9, 9};  // the card of slot 28 is in East behind the first run
}

void PilePlan::Gather(int run) {
  const auto [inEast, inWest, inSouth] = Carried(run);
  FeedSequence = {};
  auto place = FeedSequence.begin() + 1;
  place = std::copy_n(PileE.begin() + 1, inEast, place);
  place = std::copy_n(PileW.begin() + 1, inWest, place);
  std::copy_n(PileS.begin() + 1, inSouth, place);
}

bool IsWhole(const wire::CardBytes& log, int count) {
  for (int number = 1; number <= count; ++number) {
    if (std::count(log.Bytes.begin(), log.Bytes.end(), number) != 1) return false;
  }
  const auto others = std::count_if(log.Bytes.begin(), log.Bytes.end(),
                                    [&](std::uint8_t number) { return number != 0; });
  return others == count;
}

}  // namespace morvane::poker
