#include "simulator/run_organ.h"

#include <algorithm>
#include <span>
#include <utility>

#include "simulator/agrees.h"
#include "wire/flash_commands.h"
#include "wire/service_commands.h"

namespace morvane::simulator {
namespace {

using namespace wire;

constexpr std::uint8_t kTestDealSince = 0x83;

/// The list of a start command without the jokers, who are in no pack of a bridge run.
CardBytes WithoutJokers(CardBytes pockets) {
  std::fill(pockets.Bytes.begin() + kCards, pockets.Bytes.end(), std::uint8_t{0});
  return pockets;
}

bool NamesPockets(const CardBytes& list) {
  return std::all_of(list.Bytes.begin(), list.Bytes.end(),
                     [](std::uint8_t pocket) { return pocket <= 4; });
}

bool NamesPlaces(const CardBytes& order) {
  return std::all_of(order.Bytes.begin(), order.Bytes.end(), [](std::uint8_t place) {
    return place <= CardBytes::kPlaces || place == Route::kForeign;
  });
}

/// A test deal is of a whole pack, and names its cards.
bool NamesAPack(const RouteCommand& route) {
  Pack pack{};
  std::copy_n(route.Order.Bytes.begin(), pack.size(), pack.begin());
  return route.Count == kCards && route.Order == WithoutJokers(route.Order) && IsWhole(pack);
}

bool Accept(Frame& reply) {
  Put(AcceptedReply{}, reply);
  return true;
}

}  // namespace

bool RunOrgan::Answer(const Frame& command, CardWay::Time now, Frame& reply) {
  switch (CodeOf(command)) {
    case CmdDeal:
    case CmdRead:
      return Start(command, now, reply);
    case CmdSort:
      return StartSort(command, now, reply);
    case CmdRoute:
      return StoreRoute(command, reply);
    case CmdFetchLog:
      Put(CardLogReply{run_.CardLog()}, reply);
      return true;
    case CmdFetchBoard:
      return AnswerBoard(reply);
    case CmdCounter:
      return AnswerCounter(command, reply);
    case CmdEraseErrors:
      return EraseErrors(command, reply);
    default:
      return false;
  }
}

bool RunOrgan::StoreRoute(const Frame& command, Frame& reply) {
  const auto route = Get<RouteCommand>(command);
  if (!Agrees(route, command) || !NamesPlaces(route.Order)) return false;
  if (route.Count < 1 || route.Count > CardBytes::kPlaces) return false;
  if (route.TestDeal && (!NamesAPack(route) || !options_.FirmwareSince(kTestDealSince)))
    return false;
  route_ = {route.Count, route.Order, route.TestDeal};
  return Accept(reply);
}

bool RunOrgan::Start(const Frame& command, CardWay::Time now, Frame& reply) {
  const auto start = Get<StartCommand>(command);
  const CardBytes pockets = WithoutJokers(start.Pockets);
  const bool routed = start.Code == CmdDeal && route_;
  if (!Agrees(start.Settings, command)) return false;
  if (!NamesPockets(routed ? start.Pockets : pockets)) return false;
  if (start.Continue) {
    run_.GoOn(now);
  } else if (routed) {
    run_.Follow(*std::exchange(route_, std::nullopt), start.Pockets, now);
  } else if (start.Code == CmdRead) {
    route_.reset();
    run_.Begin(RunKind::Read, pockets, now);
  } else if (!run_.Follows(start.Pockets)) {
    run_.Begin(RunKind::Deal, pockets, now);
  }
  return Accept(reply);
}

bool RunOrgan::StartSort(const Frame& command, CardWay::Time now, Frame& reply) {
  const auto start = Get<SortCommand>(command);
  if (!Agrees(start.Settings, command)) return false;
  if (start.Continue) {
    run_.GoOn(now);
  } else {
    route_.reset();
    run_.Begin(RunKind::Sort, {}, now);
  }
  return Accept(reply);
}

void RunOrgan::GiveUp() {
  route_.reset();
  run_.ClearError();
}

void RunOrgan::Forget() {
  route_.reset();
  run_.Forget();
}

bool RunOrgan::AnswerBoard(Frame& reply) const {
  BoardReply board;
  for (std::size_t pocket = 1; pocket <= kHands; ++pocket) {
    const Pile& pile = run_.Pocket(pocket);
    for (std::size_t i = 0; i < pile.Count(); ++i) {
      board.Pockets[MachineCard(pile[i])] = static_cast<std::uint8_t>(pocket);
    }
  }
  Put(board, reply);
  return true;
}

bool RunOrgan::AnswerCounter(const Frame& command, Frame& reply) const {
  CounterPageReply page{Get<CounterPageCommand>(command).Page, {}};
  if (page.Page >= CounterPageCommand::kPages) return false;
  const auto stops = std::span(counters_.Stops).subspan(page.Page * page.Counters.size());
  std::copy_n(stops.begin(), std::min(stops.size(), page.Counters.size()), page.Counters.begin());
  if (page.Page == 0) page.Counters[0] = counters_.BoardsDealt;
  Put(page, reply);
  return true;
}

bool RunOrgan::SetCounter(const Frame& command) {
  const auto counter = Get<SetCounterCommand>(command);
  if (!Agrees(counter, command)) return false;
  counters_.BoardsDealt = counter.Boards;
  return true;
}

bool RunOrgan::EraseErrors(const Frame& command, Frame& reply) {
  if (!Agrees(EraseErrorsCommand{}, command)) return false;
  if (options_.EraseStatus == 0) counters_.Stops = {};
  Put(EraseErrorsReply{options_.EraseStatus}, reply);
  return true;
}

std::string RunOrgan::StateText() const {
  const std::string place =
      " card " + std::to_string(run_.Fallen() + 1) + " of " + std::to_string(run_.CardsOfRun());
  if (run_.State() == StatusReply::kIdle) return "idle";
  if (run_.Cards().Loaded() == 0) return "the feeder is empty";
  if (!run_.Busy()) return "stopped at" + place + " with code " + std::to_string(run_.State());
  switch (run_.Kind()) {
    case RunKind::Read:
      return "reading" + place;
    case RunKind::Sort:
      return "sorting" + place;
    case RunKind::Stack:
      return "stacking" + place;
    case RunKind::Test:
      return "testing" + place;
    default:
      return "dealing" + place;
  }
}

}  // namespace morvane::simulator
