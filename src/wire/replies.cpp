#include "wire/replies.h"

#include <algorithm>

namespace morvane::machine {
namespace {

constexpr std::uint8_t kCountBits = 0x3F;
constexpr std::uint8_t kSlotActive = 1U << 2U;
constexpr std::uint8_t kPedal = 1U << 3U;
constexpr std::uint8_t kBoardInserted = 1U << 4U;

}  // namespace

void StatusReply::Put(Frame& frame) const {
  frame[0] = CmdStatus;
  frame[1] = State;
  for (std::size_t pocket = 1; pocket < Pocket.size(); ++pocket) frame[1 + pocket] = Pocket[pocket];
  frame[6] = static_cast<std::uint8_t>((SlotActive ? kSlotActive : 0) | (Pedal ? kPedal : 0) |
                                       (BoardInserted ? kBoardInserted : 0));
}

StatusReply StatusReply::Get(const Frame& frame) {
  StatusReply reply;
  reply.State = frame[1];
  for (std::size_t pocket = 1; pocket < reply.Pocket.size(); ++pocket) {
    reply.Pocket[pocket] = frame[1 + pocket] & kCountBits;
  }
  reply.SlotActive = (frame[6] & kSlotActive) != 0;
  reply.Pedal = (frame[6] & kPedal) != 0;
  reply.BoardInserted = (frame[6] & kBoardInserted) != 0;
  return reply;
}

void VersionReply::Put(Frame& frame) const {
  frame[0] = CmdVersion;
  frame[1] = FirmwareMajor;
  frame[2] = FirmwareMinor;
  frame[3] = BootMajor;
  frame[4] = BootMinor;
  frame[5] = Flash;
}

VersionReply VersionReply::Get(const Frame& frame) {
  return {frame[1], frame[2], frame[3], frame[4], frame[5]};
}

void IdentityReply::Put(Frame& frame) const {
  frame[0] = CmdIdentity;
  frame[1] = Page;
  PutBig(frame, 2, 2, High);
  PutBig(frame, 4, 2, Low);
}

IdentityReply IdentityReply::Get(const Frame& frame) {
  return {frame[1], static_cast<std::uint16_t>(GetBig(frame, 2, 2)),
          static_cast<std::uint16_t>(GetBig(frame, 4, 2))};
}

void CounterReply::Put(Frame& frame) const {
  frame[0] = kReplyCounter;
  frame[2] = Counter;
  PutBig(frame, kPayload, 4, Value);
}

CounterReply CounterReply::Get(const Frame& frame) {
  return {frame[2], GetBig(frame, kPayload, 4)};
}

void SensorReply::Put(Frame& frame) const {
  frame[0] = CmdSensor;
  frame[1] = Selector;
  frame[2] = Value;
}

SensorReply SensorReply::Get(const Frame& frame) {
  return {static_cast<std::uint8_t>(frame[1] & kCountBits), frame[2]};
}

void BoardReply::Put(Frame& frame) const {
  frame[0] = kReplyBoard;
  std::copy(Pockets.begin(), Pockets.end(), frame.begin() + kPayload);
}

BoardReply BoardReply::Get(const Frame& frame) {
  BoardReply reply;
  std::copy_n(frame.begin() + kPayload, reply.Pockets.size(), reply.Pockets.begin());
  return reply;
}

void CardLogReply::Put(Frame& frame) const {
  frame[0] = kReplyCardLog;
  std::copy(Cards.begin() + 1, Cards.end(), frame.begin() + kPayload);
}

CardLogReply CardLogReply::Get(const Frame& frame) {
  CardLogReply reply;
  std::copy_n(frame.begin() + kPayload, reply.Cards.size() - 1, reply.Cards.begin() + 1);
  return reply;
}

std::uint8_t LabelOfBoard(int board) {
  if (board < 1 || board > 70) return 0;
  const auto* at = std::find(BoardLabelTable.begin(), BoardLabelTable.end(), board);
  return static_cast<std::uint8_t>(at - BoardLabelTable.begin());
}

}  // namespace morvane::machine
