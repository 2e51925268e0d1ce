#include "simulator/card_way.h"

#include <algorithm>
#include <numeric>
#include <random>
#include <utility>

#include "wire/machine_errors.h"

namespace morvane::simulator {
namespace {

using wire::MachineCard;
using wire::StatusReply;

CardWay::Time CardTimeAt(double speed) {
  if (speed <= 0.0) return CardWay::Time(0);
  const double time = static_cast<double>(CardWay::kCardTime.count()) / speed;
  return CardWay::Time(std::max<CardWay::Time::rep>(1, static_cast<CardWay::Time::rep>(time)));
}

std::uint64_t SeedOf(const Options& options) {
  if (options.Seed) return *options.Seed;
  std::random_device source;
  return std::uint64_t{source()} << 32U | source();
}

/// Suit by suit from the Two up to the Ace, as the machine numbers its cards.
Pack FlashedPack(const std::vector<CardSwap>& swaps) {
  Pack pack{};
  std::iota(pack.begin(), pack.end(), std::uint8_t{1});
  for (const CardSwap& swap : swaps) {
    std::swap(pack[static_cast<std::size_t>(swap.First - 1)],
              pack[static_cast<std::size_t>(swap.Second - 1)]);
  }
  return pack;
}

}  // namespace

CardWay::CardWay(const Options& options, Counters& counters)
    : options_(options),
      counters_(counters),
      cardTime_(CardTimeAt(options.Speed)),
      feeder_(SeedOf(options)),
      faults_(options.Faults),
      carrier_(options.FirstCarry) {
  if (options.Flashed) feeder_.LieAlways(FlashedPack(options.Swaps));
}

void CardWay::Begin(RunKind kind, const wire::CardBytes& pockets, Time now) {
  if (Busy() && kind == kind_ && pockets == handList_) return;
  kind_ = kind;
  handList_ = pockets;
  for (Pile& pocket : pockets_) pocket.Clear();
  Start(now);
}

void CardWay::Follow(const Route& route, const wire::CardBytes& pockets, Time now) {
  if (Follows(pockets) && route == route_) return;
  kind_ = route.Test ? RunKind::Test : RunKind::Stack;
  route_ = route;
  handList_ = pockets;
  Start(now);
}

void CardWay::Start(Time now) {
  fallen_ = 0;
  fellInto_ = {};
  cardLog_ = {};
  Load();
  SetState(StatusReply::kBusy);
  nextCardAt_ = now + cardTime_;
}

void CardWay::Load() {
  switch (kind_) {
    case RunKind::Read:
      LoadForReading();
      break;
    case RunKind::Sort:
      feeder_.LoadPacks(options_.Packs);
      break;
    case RunKind::Stack:
    case RunKind::Test:
      LoadForRoute();
      break;
    default:
      feeder_.LoadPack();
  }
}

void CardWay::LoadForReading() {
  if (boards_.Empty()) {
    feeder_.LoadForReading({}, handList_);
  } else if (boards_.UsedUp()) {
    feeder_.Empty();
    boards_.PutBack();  // who goes on, or reads again, has done that
  } else {
    feeder_.LoadForReading(boards_.TakeUp(), handList_);
  }
}

void CardWay::LoadForRoute() {
  const bool laid = feeder_.TakeLaid();
  if (route_.Test || !route_.Known()) {
    for (Pile& pocket : pockets_) pocket.Clear();
    if (!laid) feeder_.LoadPack();
  } else if (laid) {
    LeaveToNorth();
  } else {
    carrier_.CarryBack(pockets_, feeder_);
  }
}

/// Who has laid the cards has emptied the other pockets, and took from North what he wanted.
void CardWay::LeaveToNorth() {
  Pile north = std::exchange(pockets_[PocketOfHand[kNorth]], Pile());
  for (Pile& pocket : pockets_) pocket.Clear();
  for (std::size_t at = 0; at < feeder_.Left(); ++at) north.Remove(feeder_.Waiting(at));
  pockets_[PocketOfHand[kNorth]] = north;
}

bool CardWay::PutBack() {
  if (!CanPutBack()) return false;
  Pile& north = pockets_[PocketOfHand[kNorth]];
  feeder_.Lay(north);
  north.Clear();
  ++changes_;
  return true;
}

std::optional<int> CardWay::FeedOne() {
  if (state_ != StatusReply::kIdle) return std::nullopt;
  if (feeder_.Left() == 0) feeder_.LoadPack();
  const int card = feeder_.Front();
  feeder_.Feed();
  pockets_[PocketOfHand[kNorth]].Add(card);
  ++changes_;
  return card;
}

void CardWay::GoOn(Time now) {
  if (Busy()) return;
  if (kind_ == RunKind::None) {
    SetState(wire::kIncorrectCardOrder);
    return;
  }
  if (!wire::TextOfError(state_).CanGoOn) return;
  if (!feeder_.TakeLaid() && feeder_.Loaded() == 0) Load();
  SetState(StatusReply::kBusy);
  nextCardAt_ = now + cardTime_;
}

void CardWay::Break() { Stop(wire::kBreakDealing); }

void CardWay::Stop(std::uint8_t code) {
  if (!Busy()) return;
  lastStop_ = {code, feeder_.Left() > 0 ? feeder_.Front() : 0, lastStop_.Times + 1};
  SetState(code);
}

void CardWay::ClearError() {
  if (Busy() || state_ == StatusReply::kIdle) return;
  kind_ = RunKind::None;
  SetState(StatusReply::kIdle);
}

void CardWay::Forget() {
  kind_ = RunKind::None;
  fellInto_ = {};  // the cards lie where they are; the counts were in its memory
  SetState(StatusReply::kIdle);
}

void CardWay::Advance(Time now) {
  if (cardTime_.count() == 0) return;
  while (Busy() && nextCardAt_ <= now) {
    FallOne();
    nextCardAt_ += cardTime_;
  }
}

void CardWay::Polled() {
  if (cardTime_.count() == 0 && Busy()) FallOne();
}

void CardWay::FallOne() {
  if (const std::uint8_t code = DueFault()) {
    Stop(code);
    return;
  }
  if (feeder_.Left() == 0) {
    Stop(wire::kCardFeeding);
    return;
  }
  const std::size_t pocket = PocketOfFront();
  if (pocket == 0 || !FrontIsExpected()) {  // a card that nobody wants, or not yet
    Stop(wire::kIncorrectCardOrder);
    return;
  }
  const int card = feeder_.Front();
  pockets_[pocket].Add(card);
  feeder_.Feed();
  ++fellInto_[pocket];
  ++fallen_;
  cardLog_[MachineCard(card)] = static_cast<std::uint8_t>(fallen_);
  ++changes_;
  if (Done()) Finish();
}

bool CardWay::Done() const { return HasRoute() ? fallen_ == route_.Count : feeder_.Left() == 0; }

bool CardWay::FrontIsExpected() const {
  if (!HasRoute() || !route_.Known()) return true;
  if (route_.Test) return route_.Order.Bytes[fallen_] == options_.TakenFor(feeder_.Front());
  return route_.Order[MachineCard(feeder_.Front())] == fallen_ + 1;
}

std::uint8_t CardWay::DueFault() {
  if (nextFault_ != 0) return std::exchange(nextFault_, std::uint8_t{0});
  const int card = static_cast<int>(Fallen()) + 1;
  const auto due = std::find_if(faults_.begin(), faults_.end(), [&](const CardFault& fault) {
    return fault.Board == runsFinished_ + 1 && fault.Card == card;
  });
  if (due == faults_.end()) return 0;
  const std::uint8_t code = due->Code;
  faults_.erase(due);
  return code;
}

std::size_t CardWay::PocketOfFront() const {
  const int card = feeder_.Front();
  switch (kind_) {
    case RunKind::Sort:
      return PocketOfHand[static_cast<std::size_t>(CardSuit(card))];
    case RunKind::Read:  // the list tells the pocket of each place, not of each card
      return handList_.Bytes[Fallen()];
    default:
      return handList_[MachineCard(card)];
  }
}

void CardWay::Finish() {
  if (kind_ == RunKind::Deal) ++counters_.BoardsDealt;
  if (kind_ == RunKind::Read) boards_.Finished();
  ++runsFinished_;
  SetState(StatusReply::kIdle);
}

void CardWay::SetState(std::uint8_t state) {
  if (state != StatusReply::kIdle && state < counters_.Stops.size()) {
    ++counters_.Stops[state];
  }
  state_ = state;
  ++changes_;
}

}  // namespace morvane::simulator
