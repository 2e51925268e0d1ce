#include "simulator/wired_machine.h"

#include <algorithm>
#include <cmath>
#include <random>

#include "platform/usb_xpress.h"
#include "wire/board_labels.h"
#include "wire/replies.h"

namespace morvane::simulator {
namespace {

using namespace wire;

constexpr double kByteMicroseconds = 10.0 * 1'000'000.0 / UsbXpress::kBaudRate;
/// How long a real machine thinks about a command.
constexpr double kThinkingMicroseconds = 2000.0;

std::uint64_t NoiseSeed(const Options& options) {
  constexpr std::uint64_t kOwnSeries = 0x9E3779B97F4A7C15U;
  return options.Seed ? *options.Seed ^ kOwnSeries : std::uint64_t{std::random_device{}()};
}

WiredMachine::Time ThinkingTimeAt(double speed) {
  return WiredMachine::Time(speed > 0.0 ? std::lround(kThinkingMicroseconds / speed) : 0);
}

}  // namespace

WiredMachine::WiredMachine(const Options& options)
    : firmware_(options),
      noise_(options.Noise, NoiseSeed(options)),
      thinkingTime_(ThinkingTimeAt(options.Speed)) {
  if (options.Board != 0) InsertBoard(options.Board);
}

WiredMachine::Time WiredMachine::WireTime(std::size_t bytes) {
  return Time(std::lround(static_cast<double>(bytes) * kByteMicroseconds));
}

void WiredMachine::InsertBoard(int number) { firmware_.InsertBoard(LabelOfBoard(number)); }

void WiredMachine::CauseFault(int code) {
  if (code < 1 || code > StatusReply::kLastError) return;
  firmware_.Run().CauseFault(static_cast<std::uint8_t>(code));
}

bool WiredMachine::LoadPack(const std::array<int, kCards>& cards) {
  std::array<std::uint8_t, kCards> pack{};
  for (std::size_t i = 0; i < cards.size(); ++i) {
    if (cards[i] < 1 || cards[i] > kCards) return false;
    pack[i] = static_cast<std::uint8_t>(MachineCard::Of(cards[i]).Number());
  }
  return firmware_.Run().Cards().Prepare(pack);
}

void WiredMachine::LayBoards(std::vector<Board> boards) {
  firmware_.Run().Boards().Lay(std::move(boards));
  ++changes_;
}

bool WiredMachine::LayInFeeder(std::span<const int> machineCards) {
  Pile cards;
  std::array<bool, MachineCard::kLast + 1> seen{};
  for (const int card : machineCards) {
    if (card < 1 || card > MachineCard::kLast) return false;
    if (std::exchange(seen[static_cast<std::size_t>(card)], true)) return false;
    cards.Add(card);
  }
  if (Busy()) return false;
  firmware_.Run().Cards().Lay(cards);
  ++changes_;
  return true;
}

void WiredMachine::CarryNext(Carry way) {
  firmware_.Run().PileCarrier().Next(way);
  ++changes_;
}

void WiredMachine::PowerOff() {
  powered_ = false;
  heardCount_ = 0;
  firmware_.Restart();
}

WiredMachine::CardPiles WiredMachine::MachineCardsByPocket() const {
  CardPiles piles;
  for (std::size_t pocket = 1; pocket <= kHands; ++pocket) {
    const Pile& pile = firmware_.Run().Pocket(pocket);
    for (std::size_t i = 0; i < pile.Count(); ++i) piles[pocket].push_back(pile[i]);
  }
  return piles;
}

WiredMachine::CardPiles WiredMachine::CardsByPocket() const {
  CardPiles piles = MachineCardsByPocket();
  for (auto& pile : piles) {
    for (int& card : pile) card = MachineCard(card).Card();
  }
  return piles;
}

WiredMachine::CardPiles WiredMachine::CardsByHand() const {
  CardPiles piles = CardsByPocket();
  CardPiles hands;
  for (std::size_t hand = 1; hand <= kHands; ++hand) {
    hands[hand] = std::move(piles[PocketOfHand[hand]]);
  }
  return hands;
}

Board WiredMachine::DealtBoard() const {
  Board board;
  const CardPiles hands = CardsByHand();
  for (std::size_t hand = 1; hand <= kHands; ++hand) {
    for (const int card : hands[hand]) {
      if (card != 0) board.Cards[static_cast<std::size_t>(card)] = static_cast<std::uint8_t>(hand);
    }
  }
  AnalyzeBoard(board);
  return board;
}

std::vector<int> WiredMachine::NextCards(std::size_t most) const {
  const Feeder& feeder = firmware_.Run().Cards();
  std::vector<int> cards;
  for (std::size_t at = 0; at < std::min(most, feeder.Left()); ++at) {
    cards.push_back(MachineCard(feeder.Waiting(at)).Card());
  }
  return cards;
}

std::string WiredMachine::StateText() const { return powered_ ? firmware_.StateText() : "off"; }

void WiredMachine::TakeLatch(bool on) {
  if (latch_ && !on && powered_) firmware_.LatchDropped();
  latch_ = on;
  ++changes_;
}

// The first eight bytes tell how long the frame is.
std::optional<WiredMachine::Saying> WiredMachine::Hear(std::uint8_t byte, Time now) {
  if (now - heardAt_ >= kSilence) {
    heardCount_ = 0;
    deaf_ = false;
  }
  heardAt_ = now;
  noise_.Pass({&byte, 1});
  if (!powered_ || deaf_) return std::nullopt;
  heard_[heardCount_++] = byte;
  if (heardCount_ < kShortFrame) return std::nullopt;
  if (heardCount_ < SizeOnTheWire(std::span(heard_).first(kShortFrame))) return std::nullopt;
  return TakeFrame(std::exchange(heardCount_, 0), now);
}

std::optional<WiredMachine::Saying> WiredMachine::TakeFrame(std::size_t size, Time now) {
  Frame command = heard_;
  const std::span<std::uint8_t> wire = std::span(command).first(size);
  bool good = Unscramble(wire, kStepToMachine);
  const LinkFault fault = faults_.Next(good ? CodeOf(command) : -1);
  if (fault.What == LinkFault::Kind::LoseCommand) return std::nullopt;
  if (fault.What == LinkFault::Kind::CorruptCommand) {
    command = heard_;
    command[fault.Place % size] =
        static_cast<std::uint8_t>(command[fault.Place % size] ^ fault.Mask);
    good = Unscramble(wire, kStepToMachine);
  }
  if (!good) {
    deaf_ = true;
    frames_.Note(command, reply_, FrameLog::Ending::kBad);
    return std::nullopt;
  }
  const std::size_t replySize = firmware_.Answer(command, now, reply_);
  const bool said = replySize != 0 && fault.What != LinkFault::Kind::LoseReply;
  frames_.Note(command, reply_, said ? FrameLog::Ending::kAnswered : FrameLog::Ending::kSilent);
  if (!said) return std::nullopt;
  Saying saying = Say(replySize, fault);
  saying.Unasked = SayUnasked(now);
  return saying;
}

std::span<const std::uint8_t> WiredMachine::SayUnasked(Time now) {
  const std::span<std::uint8_t> wire = std::span(unasked_).first(firmware_.Unasked(now, unasked_));
  if (wire.empty()) return wire;
  frames_.Note({}, unasked_, FrameLog::Ending::kUnasked);
  Scramble(wire, kStepFromMachine);
  noise_.Pass(wire);
  return wire;
}

WiredMachine::Saying WiredMachine::Say(std::size_t size, const LinkFault& fault) {
  using Kind = LinkFault::Kind;
  if (fault.What == Kind::ReplaceCode) {
    SetCode(reply_, fault.Place);
    size = FrameSize(fault.Place);
  }
  std::span<std::uint8_t> wire = std::span(reply_).first(size);
  Scramble(wire, kStepFromMachine);
  if (fault.What == Kind::CorruptReply) {
    wire[fault.Place % size] = static_cast<std::uint8_t>(wire[fault.Place % size] ^ fault.Mask);
  }
  noise_.Pass(wire);
  if (fault.What == Kind::CutReply) wire = wire.first(std::min<std::size_t>(fault.Place, size));
  return {.Wire = wire, .Unasked = {}, .How = fault.What};
}

}  // namespace morvane::simulator
