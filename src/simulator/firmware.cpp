#include "simulator/firmware.h"

#include <algorithm>

#include "wire/replies.h"

namespace morvane::simulator {
namespace {

using namespace machine;

constexpr std::uint8_t kBootMajor = 1;
constexpr std::uint8_t kBootMinor = 0x20;
constexpr std::uint8_t kFlash = 4;
constexpr std::uint16_t kMadeOnDayAndMonth = 14 << 8 | 6;
constexpr std::uint16_t kMadeInYear = 2019;

// One check byte lets a garbled frame through now and then, and a poll turned into a start would be
// a wrong deal that nobody sees. What belongs together in a start gives it away.
bool SettingsAgree(const Frame& command) {
  Frame again = command;
  RunSettings::Get(command).Put(again);
  return again == command;
}

bool NamesPockets(const HandList& list) {
  return std::all_of(list.begin(), list.end(), [](std::uint8_t pocket) { return pocket <= 4; });
}

}  // namespace

Firmware::Firmware(const Options& options) : options_(options), run_(options) {}

std::size_t Firmware::Answer(const Frame& command, Time now, Frame& reply) {
  run_.Advance(now);
  reply = {};
  const bool answered = AnswerRun(command, now, reply) || AnswerQuestion(command, reply);
  return answered ? FrameSize(reply[0]) : 0;
}

bool Firmware::AnswerRun(const Frame& command, Time now, Frame& reply) {
  switch (command[0]) {
    case CmdStatus:
      return AnswerStatus(command, reply);
    case CmdDeal:
    case CmdRead:
      return Start(command, now, reply);
    case CmdSort:
      return StartSort(command, now, reply);
    case CmdFetchLog:
      CardLogReply{run_.CardLog()}.Put(reply);
      return true;
    case CmdFetchBoard:
      return AnswerBoard(reply);
    default:
      return false;
  }
}

bool Firmware::AnswerQuestion(const Frame& command, Frame& reply) {
  switch (command[0]) {
    case CmdVersion:
      return AnswerVersion(reply);
    case CmdIdentity:
      return AnswerIdentity(command, reply);
    case CmdCounter:
      return AnswerCounter(command, reply);
    case CmdSensor:
      return AnswerSensor(command, reply);
    case CmdTest:
      return AnswerTest(reply);
    default:
      return false;
  }
}

bool Firmware::Start(const Frame& command, Time now, Frame& reply) {
  const StartCommand start = StartCommand::Get(command);
  if (!SettingsAgree(command) || !NamesPockets(start.Pockets)) return false;
  if (start.Continue) {
    run_.GoOn(now);
  } else {
    run_.Begin(start.Code == CmdRead ? RunKind::Read : RunKind::Deal, start.Pockets, now);
  }
  AcceptedReply{}.Put(reply);
  return true;
}

bool Firmware::StartSort(const Frame& command, Time now, Frame& reply) {
  if (!SettingsAgree(command)) return false;
  if (SortCommand::Get(command).Continue) {
    run_.GoOn(now);
  } else {
    run_.Begin(RunKind::Sort, {}, now);
  }
  AcceptedReply{}.Put(reply);
  return true;
}

bool Firmware::AnswerStatus(const Frame& command, Frame& reply) {
  const std::uint8_t flags = StatusCommand::Get(command).Flags;
  if ((flags & StatusCommand::kPedalAck) != 0) pedal_.Acknowledge();
  if ((flags & StatusCommand::kBoxAck) != 0) slot_.Acknowledge();
  if ((flags & StatusCommand::kBreak) != 0) run_.Break();
  run_.Polled();
  StatusReply status;
  status.State = run_.State();
  for (std::size_t pocket = 1; pocket < status.Pocket.size(); ++pocket) {
    status.Pocket[pocket] = static_cast<std::uint8_t>(run_.Pocket(pocket).Count() & 0x3FU);
  }
  const BoardSlot::Bits slot = slot_.NextReport();
  status.SlotActive = slot.Active;
  status.BoardInserted = slot.Inserted;
  status.Pedal = pedal_.Show();
  status.Put(reply);
  return true;
}

bool Firmware::AnswerVersion(Frame& reply) {
  run_.ClearError();
  VersionReply{options_.FirmwareMajor, options_.FirmwareMinor, kBootMajor, kBootMinor, kFlash}.Put(
      reply);
  return true;
}

bool Firmware::AnswerIdentity(const Frame& command, Frame& reply) const {
  switch (const std::uint8_t page = IdentityCommand::Get(command).Page) {
    case 1:
      IdentityReply{page, options_.Serial, options_.Hardware}.Put(reply);
      return true;
    case 2:
      IdentityReply{page, kMadeOnDayAndMonth, kMadeInYear}.Put(reply);
      return true;
    default:
      return false;
  }
}

bool Firmware::AnswerCounter(const Frame& command, Frame& reply) const {
  const std::uint8_t counter = CounterCommand::Get(command).Counter;
  CounterReply{counter, counter == 0 ? run_.BoardsDealt() : 0}.Put(reply);
  return true;
}

bool Firmware::AnswerSensor(const Frame& command, Frame& reply) const {
  const std::uint8_t selector = SensorCommand::Get(command).Selector;
  if (selector != SensorCommand::kBoardLabel) return false;
  const bool hasReader = (options_.Hardware & IdentityReply::kBoardNumberReader) != 0;
  SensorReply{selector, hasReader ? slot_.Label() : std::uint8_t{0}}.Put(reply);
  return true;
}

bool Firmware::AnswerBoard(Frame& reply) const {
  BoardReply board;
  for (std::size_t pocket = 1; pocket <= kHands; ++pocket) {
    const Pile& pile = run_.Pocket(pocket);
    for (std::size_t i = 0; i < pile.Count(); ++i) {
      board.Pockets[static_cast<std::size_t>(pile[i] - 1)] = static_cast<std::uint8_t>(pocket);
    }
  }
  board.Put(reply);
  return true;
}

// For the eye of a technician: state, cards fallen, cards loaded, label.
bool Firmware::AnswerTest(Frame& reply) const {
  reply[0] = kReplyTest;
  reply[kTestFirst] = run_.State();
  reply[kTestFirst + 1] = static_cast<std::uint8_t>(run_.Fallen());
  reply[kTestFirst + 2] = static_cast<std::uint8_t>(run_.Loaded());
  reply[kTestFirst + 3] = slot_.Label();
  return true;
}

void Firmware::PressPedal() {
  pedal_.Happen();
  ++changes_;
}

void Firmware::InsertBoard(std::uint8_t label) {
  slot_.Insert(label);
  ++changes_;
}

void Firmware::RemoveBoard() {
  if (slot_.Occupied()) run_.Stop(kCodeBoardOut);
  slot_.Remove();
  ++changes_;
}

void Firmware::Restart() {
  run_.Forget();
  slot_.Forget();
  pedal_ = {};
  ++changes_;
}

std::string Firmware::StateText() const {
  const std::string place =
      " card " + std::to_string(run_.Fallen() + 1) + " of " + std::to_string(run_.Loaded());
  if (run_.State() == StatusReply::kIdle) return "idle";
  if (!run_.Busy()) return "stopped at" + place + " with code " + std::to_string(run_.State());
  switch (run_.Kind()) {
    case RunKind::Read:
      return "reading" + place;
    case RunKind::Sort:
      return "sorting" + place;
    default:
      return "dealing" + place;
  }
}

}  // namespace morvane::simulator
