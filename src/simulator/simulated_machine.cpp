#include "simulator/simulated_machine.h"

#include <algorithm>
#include <cmath>
#include <random>
#include <utility>

#include "wire/board_labels.h"
#include "wire/replies.h"

namespace morvane::simulator {
namespace {

using namespace wire;
using std::chrono::microseconds;
using std::chrono::milliseconds;

constexpr UsbXpress::Handle kHandle = 1;
constexpr std::uint32_t kLibraryVersion = 3U << 16U | 1U;
constexpr std::uint32_t kDriverVersion = 3U << 16U | 3U;
constexpr std::uint8_t kLatchLine = 1;

/// Ten bits a byte at 115200 baud.
constexpr double kByteMicroseconds = 10.0 * 1'000'000.0 / UsbXpress::kBaudRate;
/// How long a real machine thinks about a command.
constexpr double kAnswerMicroseconds = 2000.0;
/// A pause of this length ends a frame that was never completed, and a machine's deafness.
constexpr microseconds kSilence = milliseconds(20);

microseconds WireTime(std::size_t bytes) {
  return microseconds(std::lround(static_cast<double>(bytes) * kByteMicroseconds));
}

std::uint64_t NoiseSeed(const Options& options) {
  constexpr std::uint64_t kOwnSeries = 0x9E3779B97F4A7C15U;
  return options.Seed ? *options.Seed ^ kOwnSeries : std::uint64_t{std::random_device{}()};
}

}  // namespace

SimulatedMachine::SimulatedMachine(const Options& options, Clock& clock)
    : options_(options),
      clock_(clock),
      firmware_(options),
      noise_(options.Noise, NoiseSeed(options)) {}

void SimulatedMachine::InsertBoard(int number) { firmware_.InsertBoard(LabelOfBoard(number)); }

void SimulatedMachine::CauseFault(int code) {
  if (code < 1 || code > StatusReply::kLastError) return;
  firmware_.Run().CauseFault(static_cast<std::uint8_t>(code));
}

bool SimulatedMachine::LoadPack(const std::array<int, kCards>& cards) {
  std::array<std::uint8_t, kCards> pack{};
  for (std::size_t i = 0; i < cards.size(); ++i) {
    if (cards[i] < 1 || cards[i] > kCards) return false;
    pack[i] = static_cast<std::uint8_t>(MachineCard::Of(cards[i]).Number());
  }
  return firmware_.Run().Cards().Prepare(pack);
}

void SimulatedMachine::PowerOff() {
  powered_ = false;
  heardCount_ = 0;
  firmware_.Restart();
}

SimulatedMachine::CardPiles SimulatedMachine::CardsByPocket() const {
  CardPiles piles;
  for (std::size_t pocket = 1; pocket <= kHands; ++pocket) {
    const Pile& pile = firmware_.Run().Pocket(pocket);
    for (std::size_t i = 0; i < pile.Count(); ++i) {
      piles[pocket].push_back(MachineCard(pile[i]).Card());
    }
  }
  return piles;
}

SimulatedMachine::CardPiles SimulatedMachine::CardsByHand() const {
  CardPiles piles = CardsByPocket();
  CardPiles hands;
  for (std::size_t hand = 1; hand <= kHands; ++hand) {
    hands[hand] = std::move(piles[PocketOfHand[hand]]);
  }
  return hands;
}

Board SimulatedMachine::DealtBoard() const {
  Board board;
  const CardPiles hands = CardsByHand();
  for (std::size_t hand = 1; hand <= kHands; ++hand) {
    for (const int card : hands[hand]) {
      board.Cards[static_cast<std::size_t>(card)] = static_cast<std::uint8_t>(hand);
    }
  }
  AnalyzeBoard(board);
  return board;
}

std::string SimulatedMachine::StateText() const { return powered_ ? firmware_.StateText() : "off"; }

UsbXpress::Status SimulatedMachine::GetDllVersion(std::uint32_t& high, std::uint32_t& low) {
  high = kLibraryVersion;
  low = 0;
  return kSuccess;
}

UsbXpress::Status SimulatedMachine::GetDriverVersion(std::uint32_t& high, std::uint32_t& low) {
  high = kDriverVersion;
  low = 0;
  return kSuccess;
}

UsbXpress::Status SimulatedMachine::GetNumDevices(std::uint32_t& count) {
  count = 1;
  return kSuccess;
}

// A machine's serial string is four digits and a letter.
UsbXpress::Status SimulatedMachine::GetProductString(std::uint32_t index, ProductString& text,
                                                     std::uint32_t option) {
  if (index != 0 || option != kSerialString) return kInvalidParameter;
  text = {};
  unsigned rest = options_.Serial;
  for (std::size_t i = 4; i > 0; --i, rest /= 10) text[i - 1] = static_cast<char>('0' + rest % 10);
  text[4] = 'S';
  return kSuccess;
}

UsbXpress::Status SimulatedMachine::Open(std::uint32_t index, Handle& handle) {
  if (index != 0) return kDeviceNotFound;
  open_ = true;
  handle = kHandle;
  return kSuccess;
}

UsbXpress::Status SimulatedMachine::SetTimeouts(std::uint32_t readMs, std::uint32_t) {
  readTimeout_ = milliseconds(readMs);
  return kSuccess;
}

UsbXpress::Status SimulatedMachine::SetBaudRate(Handle handle, std::uint32_t rate) {
  if (!IsOpen(handle)) return kInvalidHandle;
  return rate == kBaudRate ? kSuccess : kInvalidParameter;
}

UsbXpress::Status SimulatedMachine::SetLineControl(Handle handle, std::uint16_t control) {
  if (!IsOpen(handle)) return kInvalidHandle;
  return control == kEightDataBitsNoParity ? kSuccess : kInvalidParameter;
}

UsbXpress::Status SimulatedMachine::FlushBuffers(Handle handle, std::uint8_t,
                                                 std::uint8_t receive) {
  if (!IsOpen(handle)) return kInvalidHandle;
  if (receive != 0) {
    received_.Clear();
    onItsWay_ = Time(0);
  }
  return kSuccess;
}

UsbXpress::Status SimulatedMachine::Write(Handle handle, std::span<const std::uint8_t> bytes,
                                          std::uint32_t& written) {
  written = 0;
  if (!IsOpen(handle)) return kInvalidHandle;
  written = static_cast<std::uint32_t>(bytes.size());
  DeliverLate();
  if (clock_.Elapsed() - heardAt_ >= kSilence) {
    heardCount_ = 0;
    deaf_ = false;
  }
  heardAt_ = clock_.Elapsed();
  for (std::uint8_t byte : bytes) {
    noise_.Pass({&byte, 1});
    Hear(byte);
  }
  if (options_.Speed > 0.0) onItsWay_ += WireTime(bytes.size());
  return kSuccess;
}

// The first eight bytes tell how long the frame is.
void SimulatedMachine::Hear(std::uint8_t byte) {
  if (!powered_ || deaf_) return;
  heard_[heardCount_++] = byte;
  if (heardCount_ < kShortFrame) return;
  if (heardCount_ < SizeOnTheWire(std::span(heard_).first(kShortFrame))) return;
  TakeFrame(std::exchange(heardCount_, 0));
}

void SimulatedMachine::TakeFrame(std::size_t size) {
  Frame command = heard_;
  const std::span<std::uint8_t> wire = std::span(command).first(size);
  bool good = Unscramble(wire, kStepToMachine);
  const LinkFault fault = faults_.Next(good ? CodeOf(command) : -1);
  if (fault.What == LinkFault::Kind::LoseCommand) return;
  if (fault.What == LinkFault::Kind::CorruptCommand) {
    command = heard_;
    command[fault.Place % size] =
        static_cast<std::uint8_t>(command[fault.Place % size] ^ fault.Mask);
    good = Unscramble(wire, kStepToMachine);
  }
  if (!good) {
    deaf_ = true;
    return;
  }
  Frame reply;
  const std::size_t replySize = firmware_.Answer(command, clock_.Elapsed(), reply);
  if (replySize != 0) Send(reply, replySize, fault);
}

void SimulatedMachine::Send(Frame& reply, std::size_t size, const LinkFault& fault) {
  using Kind = LinkFault::Kind;
  if (fault.What == Kind::LoseReply) return;
  if (fault.What == Kind::ReplaceCode) {
    SetCode(reply, fault.Place);
    size = FrameSize(fault.Place);
  }
  std::span<std::uint8_t> wire = std::span(reply).first(size);
  Scramble(wire, kStepFromMachine);
  if (fault.What == Kind::CorruptReply) {
    wire[fault.Place % size] = static_cast<std::uint8_t>(wire[fault.Place % size] ^ fault.Mask);
  }
  noise_.Pass(wire);
  if (fault.What == Kind::CutReply) wire = wire.first(std::min<std::size_t>(fault.Place, size));
  if (fault.What == Kind::LateReply) {
    std::copy(wire.begin(), wire.end(), late_.begin());
    lateCount_ = wire.size();
    lateMissed_ = false;
    return;
  }
  if (fault.What == Kind::ShiftReply) received_.Push(std::array<std::uint8_t, 1>{0x55});
  received_.Push(wire);
  if (options_.Speed > 0.0) onItsWay_ += Time(std::lround(kAnswerMicroseconds / options_.Speed));
}

void SimulatedMachine::DeliverLate() {
  received_.Push(std::span(late_).first(std::exchange(lateCount_, 0)));
}

UsbXpress::Status SimulatedMachine::Read(Handle handle, std::span<std::uint8_t> bytes,
                                         std::uint32_t& read) {
  read = 0;
  if (!IsOpen(handle)) return kInvalidHandle;
  if (lateMissed_) DeliverLate();
  const bool lacking = received_.Count() < bytes.size();
  read = static_cast<std::uint32_t>(received_.Take(bytes));
  if (lacking) {
    onItsWay_ = Time(0);
    lateMissed_ = lateCount_ != 0;
    clock_.Spend(readTimeout_);
    return kReadTimedOut;
  }
  const Time wireTime = options_.Speed > 0.0 ? WireTime(bytes.size()) : Time(0);
  const Time wait = std::exchange(onItsWay_, Time(0)) + wireTime;
  if (wait.count() > 0) clock_.Spend(wait);
  return kSuccess;
}

UsbXpress::Status SimulatedMachine::WriteLatch(Handle handle, std::uint8_t mask,
                                               std::uint8_t value) {
  if (!IsOpen(handle)) return kInvalidHandle;
  if ((mask & kLatchLine) == 0) return kSuccess;
  latch_ = (value & kLatchLine) != 0;
  ++changes_;
  return kSuccess;
}

UsbXpress::Status SimulatedMachine::Close(Handle handle) {
  if (!IsOpen(handle)) return kInvalidHandle;
  open_ = false;
  received_.Clear();
  lateCount_ = 0;
  lateMissed_ = false;
  heardCount_ = 0;
  onItsWay_ = Time{0};
  return kSuccess;
}

bool SimulatedMachine::IsOpen(Handle handle) const { return open_ && handle == kHandle; }

}  // namespace morvane::simulator
