#include "simulator/firmware.h"

#include <algorithm>

#include "simulator/agrees.h"
#include "wire/flash_commands.h"
#include "wire/machine_errors.h"
#include "wire/picture_commands.h"
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
    case CmdStartDownload:
    case CmdFlashBlock:
      return false;
    default:
      return true;
  }
}

}  // namespace

Firmware::Firmware(const Options& options)
    : kind_(options),
      store_(options.Store),
      memory_(store_.Load()),
      run_(kind_, memory_.Counted),
      slot_(kind_),
      identity_(kind_),
      sensors_(kind_, Run().CardTime()),
      parameters_(kind_, memory_.Parameters),
      camera_(kind_),
      flash_(kind_, memory_) {}

std::size_t Firmware::Answer(const Frame& command, Time now, Frame& reply) {
  Run().Advance(now);
  reply = {};
  const bool answered = Dispatch(command, now, reply);
  store_.Keep(memory_);
  return answered ? FrameSize(CodeOf(reply)) : 0;
}

std::size_t Firmware::Unasked(Time now, Frame& frame) {
  const auto card = sensors_.Feed().TakePassed(now);
  if (!card) return 0;
  frame = {};
  Put(camera_.VerdictInPassing(*card), frame);
  return kShortFrame;
}

bool Firmware::Dispatch(const Frame& command, Time now, Frame& reply) {
  const std::uint8_t code = CodeOf(command);
  if (!kind_.HasFirmware() && NeedsFirmware(code)) return false;
  switch (code) {
    case CmdDeal:
    case CmdRead:
    case CmdSort:
    case CmdRoute:
    case CmdFetchLog:
    case CmdFetchBoard:
    case CmdCounter:
    case CmdEraseErrors:
      return run_.Answer(command, now, reply);
    case CmdOutputs:
      return AnswerOutputs(command, now, reply);
    case CmdSensor:
      return AnswerSensor(command, now, reply);
    case CmdPictureLine:
    case CmdErrorPictureLine:
    case CmdCapture:
    case CmdSymbolMeasure:
    case CmdSuitMeasure:
    case CmdRecognise:
    case CmdTrial:
    case CmdErrorVerdict:
      return AnswerCamera(command, reply);
    case CmdReadParameters:
      return parameters_.Answer(command, reply);
    case CmdWriteParameters:
    case CmdTestWrite:
    case CmdSetCounter:
      std::copy_n(command.begin(), kShortFrame, reply.begin());
      return Write(command) && kind_.AnswersWrites;
    case CmdStartDownload:
    case CmdFlashBlock:
    case CmdEraseRecord:
    case CmdWriteRecord:
      return AnswerFlash(command, reply);
    case CmdVersion:
      run_.GiveUp();  // whoever asks for it has given up what stopped the machine
      return identity_.Answer(command, reply);
    case CmdIdentity:
    case CmdStoredData:
    case CmdLogicVersion:
    case CmdDieIdentity:
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
  if (outputs.Feed && kind_.HasFirmware() && !sensors_.Feed().UnderWay(now)) {
    if (const auto card = Run().FeedOne()) {
      sensors_.Feed().SetOut(*card, now);
      Eye().Show(*card);
    }
  }
  sensors_.Answer(outputs, Slot().Occupied(), now, reply);
  return true;
}

// Nothing moves any more once its program is being replaced.
bool Firmware::AnswerFlash(const Frame& command, Frame& reply) {
  const bool answered = flash_.Answer(command, reply);
  if (flash_.Loading()) run_.Forget();
  return answered;
}

bool Firmware::AnswerCamera(const Frame& command, Frame& reply) {
  constexpr unsigned kLight = OutputsCommand::kCamLeds | OutputsCommand::kCamPower;
  const bool lit = (Seen().Outputs() & kLight) == kLight;
  camera_.Note(Run().LastStop(), parameters_);
  return camera_.Answer(command, parameters_, lit, reply);
}

bool Firmware::AnswerSensor(const Frame& command, Time now, Frame& reply) {
  return slot_.Answer(command, Seen().FlipPlateSeen(), reply) ||
         sensors_.AnswerStatus(command, now, reply);
}

bool Firmware::Write(const Frame& command) {
  switch (CodeOf(command)) {
    case CmdWriteParameters:
      return WriteParameters(command);
    case CmdSetCounter:
      return run_.SetCounter(command);
    default:
      return WriteTest(command);
  }
}

bool Firmware::WriteParameters(const Frame& command) {
  const bool written = parameters_.Write(command);
  LookForBoard();
  return written;
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
  slot_.Insert(label);
  LookForBoard();
  ++changes_;
}

void Firmware::RemoveBoard() {
  if (Slot().Occupied()) Run().Stop(kBoardNotFitted);
  slot_.Slot().Remove();
  LookForBoard();
  store_.Keep(memory_);
  ++changes_;
}

std::string Firmware::StateText() const {
  if (flash_.Loading()) return "being loaded";
  return kind_.HasFirmware() ? run_.StateText() : "without firmware";
}

void Firmware::LatchDropped() {
  if (flash_.Loading()) Restart();
}

void Firmware::Restart() {
  flash_.Boot();
  run_.Forget();
  parameters_.Forget();
  slot_.Forget();
  LookForBoard();
  sensors_.Forget();
  camera_.Note(Run().LastStop(), parameters_);
  camera_.Forget();
  testNumbers_ = {};
  pedal_ = {};
  store_.Keep(memory_);
  ++changes_;
}

}  // namespace morvane::simulator
