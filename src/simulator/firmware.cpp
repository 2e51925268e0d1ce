#include "simulator/firmware.h"

#include <algorithm>

#include "simulator/agrees.h"
#include "wire/machine_errors.h"
#include "wire/service_commands.h"

namespace morvane::simulator {

using namespace wire;

namespace {

/// What a machine without firmware knows: enough to be found, and to be loaded.
bool NeedsFirmware(std::uint8_t code) {
  switch (code) {
    case CmdVersion:
    case CmdStoredData:
    case CmdLogicVersion:
    case CmdOutputs:
    case CmdSensor:
      return false;
    default:
      return true;
  }
}

VerdictReply VerdictOn(MachineCard card) {
  constexpr std::uint16_t kTime = 41;
  constexpr std::uint8_t kThreshold = 46;
  constexpr std::uint8_t kNotRecognised = 25;
  if (card.Card() == 0) return {kTime, 0, 0, kThreshold, kNotRecognised};
  const int rank = kRanks + 2 - RankPosition(card.Card());
  const int suit = CardSuit(card.Card());
  return {kTime, static_cast<std::uint8_t>(rank), static_cast<std::uint8_t>(suit), kThreshold, 0};
}

}  // namespace

Firmware::Firmware(const Options& options)
    : run_(options),
      slot_(options),
      identity_(options),
      sensors_(options, Run().CardTime()),
      parameters_(options),
      hasFirmware_(options.HasFirmware()),
      answersWrites_(options.AnswersWrites) {}

std::size_t Firmware::Answer(const Frame& command, Time now, Frame& reply) {
  Run().Advance(now);
  reply = {};
  return Dispatch(command, now, reply) ? FrameSize(CodeOf(reply)) : 0;
}

std::size_t Firmware::Unasked(Time now, Frame& frame) {
  const auto card = sensors_.Feed().TakePassed(now);
  if (!card) return 0;
  frame = {};
  Put(VerdictOn(MachineCard(*card)), frame);
  return kShortFrame;
}

bool Firmware::Dispatch(const Frame& command, Time now, Frame& reply) {
  const std::uint8_t code = CodeOf(command);
  if (!hasFirmware_ && NeedsFirmware(code)) return false;
  switch (code) {
    case CmdDeal:
    case CmdRead:
    case CmdSort:
    case CmdRoute:
    case CmdFetchLog:
    case CmdFetchBoard:
    case CmdCounter:
      return run_.Answer(command, now, reply);
    case CmdOutputs:
      return AnswerOutputs(command, now, reply);
    case CmdSensor:
      return AnswerSensor(command, now, reply);
    case CmdReadParameters:
      return parameters_.Answer(command, reply);
    case CmdWriteParameters:
    case CmdTestWrite:
    case CmdSetCounter:
      std::copy_n(command.begin(), kShortFrame, reply.begin());
      return Write(command) && answersWrites_;
    case CmdVersion:
      run_.GiveUp();  // whoever asks for it has given up what stopped the machine
      return identity_.Answer(command, reply);
    case CmdIdentity:
    case CmdStoredData:
    case CmdLogicVersion:
      return identity_.Answer(command, reply);
    case CmdStatus:
      return AnswerStatus(command, reply);
    case CmdTest:
      return AnswerTest(reply);
    default:
      return false;
  }
}

bool Firmware::AnswerOutputs(const Frame& command, Time now, Frame& reply) {
  const auto outputs = Get<OutputsCommand>(command);
  if (!Agrees(outputs, command)) return false;
  if (outputs.Feed && hasFirmware_ && !sensors_.Feed().UnderWay(now)) {
    if (const auto card = Run().FeedOne()) sensors_.Feed().SetOut(*card, now);
  }
  sensors_.Answer(outputs, Slot().Occupied(), now, reply);
  return true;
}

bool Firmware::AnswerSensor(const Frame& command, Time now, Frame& reply) {
  return slot_.Answer(command, Seen().FlipPlateSeen(), reply) ||
         sensors_.AnswerStatus(command, now, reply);
}

bool Firmware::Write(const Frame& command) {
  switch (CodeOf(command)) {
    case CmdWriteParameters:
      return parameters_.Write(command);
    case CmdSetCounter:
      return run_.SetCounter(command);
    default:
      return WriteTest(command);
  }
}

bool Firmware::WriteTest(const Frame& command) {
  const auto test = Get<TestWriteCommand>(command);
  if (!Agrees(test, command)) return false;
  testNumbers_ = {test.First, test.Second};
  return true;
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

// For the eye of a technician: state, cards fallen, cards loaded, label, what he wrote.
bool Firmware::AnswerTest(Frame& reply) const {
  TestReply test;
  test.Numbers[0] = Run().State();
  test.Numbers[1] = static_cast<std::uint8_t>(Run().Fallen());
  test.Numbers[2] = static_cast<std::uint8_t>(Run().CardsOfRun());
  test.Numbers[3] = Slot().Label();
  test.Numbers[4] = testNumbers_[0];
  test.Numbers[5] = testNumbers_[1];
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
  sensors_.Forget();
  testNumbers_ = {};
  pedal_ = {};
  ++changes_;
}

}  // namespace morvane::simulator
