#include "simulator/firmware.h"

#include "wire/commands.h"
#include "wire/machine_errors.h"

namespace morvane::simulator {

using namespace wire;

std::size_t Firmware::Answer(const Frame& command, Time now, Frame& reply) {
  Run().Advance(now);
  reply = {};
  return Dispatch(command, now, reply) ? FrameSize(CodeOf(reply)) : 0;
}

bool Firmware::Dispatch(const Frame& command, Time now, Frame& reply) {
  switch (CodeOf(command)) {
    case CmdDeal:
    case CmdRead:
    case CmdSort:
    case CmdRoute:
    case CmdFetchLog:
    case CmdFetchBoard:
    case CmdCounter:
      return run_.Answer(command, now, reply);
    case CmdSensor:
      return slot_.Answer(command, reply);
    case CmdVersion:
      run_.GiveUp();  // whoever asks for it has given up what stopped the machine
      return identity_.Answer(command, reply);
    case CmdIdentity:
      return identity_.Answer(command, reply);
    case CmdStatus:
      return AnswerStatus(command, reply);
    case CmdTest:
      return AnswerTest(reply);
    default:
      return false;
  }
}

bool Firmware::AnswerStatus(const Frame& command, Frame& reply) {
  TakeFlags(Get<StatusCommand>(command).Flags);
  Run().Polled();
  StatusReply status;
  status.State = Run().State();
  for (std::size_t pocket = 1; pocket < status.Pocket.size(); ++pocket) {
    status.Pocket[pocket] = Run().FellInto(pocket);
  }
  const BoardSlot::Bits slot = slot_.Slot().NextReport();
  status.SlotActive = slot.Active;
  status.BoardInserted = slot.Inserted;
  status.Pedal = pedal_.Show();
  Put(status, reply);
  return true;
}

void Firmware::TakeFlags(std::uint8_t flags) {
  if ((flags & StatusCommand::kPedalAck) != 0) pedal_.Acknowledge();
  if ((flags & StatusCommand::kBoxAck) != 0) slot_.Slot().Acknowledge();
  if ((flags & StatusCommand::kBreak) != 0) Run().Break();
}

// For the eye of a technician: state, cards fallen, cards loaded, label.
bool Firmware::AnswerTest(Frame& reply) const {
  TestReply test;
  test.Numbers[0] = Run().State();
  test.Numbers[1] = static_cast<std::uint8_t>(Run().Fallen());
  test.Numbers[2] = static_cast<std::uint8_t>(Run().CardsOfRun());
  test.Numbers[3] = Slot().Label();
  Put(test, reply);
  return true;
}

void Firmware::PressPedal() {
  pedal_.Happen();
  ++changes_;
}

void Firmware::InsertBoard(std::uint8_t label) {
  slot_.Slot().Insert(label);
  ++changes_;
}

void Firmware::RemoveBoard() {
  if (Slot().Occupied()) Run().Stop(kBoardNotFitted);
  slot_.Slot().Remove();
  ++changes_;
}

void Firmware::Restart() {
  run_.Forget();
  slot_.Slot().Forget();
  pedal_ = {};
  ++changes_;
}

}  // namespace morvane::simulator
