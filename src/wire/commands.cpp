#include "wire/commands.h"

#include <algorithm>

namespace morvane::machine {

void StatusCommand::Put(Frame& frame) const {
  frame[0] = CmdStatus;
  frame[1] = Flags;
}

StatusCommand StatusCommand::Get(const Frame& frame) { return {frame[1]}; }

void VersionCommand::Put(Frame& frame) const {
  frame[0] = CmdVersion;
  frame[1] = 0;
}

void IdentityCommand::Put(Frame& frame) const {
  frame[0] = CmdIdentity;
  frame[1] = Page;
}

IdentityCommand IdentityCommand::Get(const Frame& frame) { return {frame[1]}; }

void CounterCommand::Put(Frame& frame) const {
  frame[0] = CmdCounter;
  frame[1] = 0;
  frame[2] = Counter;
}

CounterCommand CounterCommand::Get(const Frame& frame) { return {frame[2]}; }

void SensorCommand::Put(Frame& frame) const {
  frame[0] = CmdSensor;
  frame[1] = Selector;
  frame[2] = 0;
}

SensorCommand SensorCommand::Get(const Frame& frame) { return {frame[1]}; }

void RunSettings::Put(Frame& frame) const {
  frame[2] = CardConfig;
  frame[3] = DealRotation;
  frame[4] = RotationTableA[DealRotation];
  frame[5] = RotationTableB[DealRotation];
  frame[6] = CardConfigExtra;
}

RunSettings RunSettings::Get(const Frame& frame) {
  return {frame[2], static_cast<std::uint8_t>(frame[3] & 3U), frame[6]};
}

void StartCommand::Put(Frame& frame) const {
  frame[0] = Code;
  frame[1] = Continue ? 1 : 0;
  Settings.Put(frame);
  std::copy(Pockets.begin(), Pockets.end(), frame.begin() + kPayload);
}

StartCommand StartCommand::Get(const Frame& frame) {
  StartCommand command{frame[0], frame[1] == 1, RunSettings::Get(frame), {}};
  std::copy_n(frame.begin() + kPayload, command.Pockets.size(), command.Pockets.begin());
  return command;
}

void SortCommand::Put(Frame& frame) const {
  frame[0] = CmdSort;
  frame[1] = Continue ? 1 : 0;
  Settings.Put(frame);
}

SortCommand SortCommand::Get(const Frame& frame) {
  return {frame[1] == 1, RunSettings::Get(frame)};
}

void RouteCommand::Put(Frame& frame) const {
  frame[0] = CmdRoute;
  frame[1] = Cards;
  frame[2] = TestDeal ? 1 : 0;
  frame[3] = frame[4] = frame[5] = 0;
  std::copy(Order.begin(), Order.end(), frame.begin() + kPayload);
}

void FetchCommand::Put(Frame& frame) const {
  frame[0] = Code;
  frame[1] = 0;
}

void TestCommand::Put(Frame& frame) const { frame[0] = CmdTest; }

}  // namespace morvane::machine
