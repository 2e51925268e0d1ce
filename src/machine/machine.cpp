#include "machine/machine.h"

#include <algorithm>

namespace morvane::machine {

StatusCommand Machine::Poll() const {
  return {static_cast<std::uint8_t>((PedalFlag != 0 ? StatusCommand::kPedalAck : 0) |
                                    (BoxFlag != 0 ? StatusCommand::kBoxAck : 0))};
}

bool Machine::VersionProbe() {
  const bool answered = Exchange(VersionCommand{}, CmdVersion);
  MachineState = answered ? kIdle : kNoVersion;
  return answered;
}

void Machine::ClearCardLog() {
  CardLog = {};
  std::fill_n(CardLog.begin() + 1, kCards, kFreshCard);
}

std::string Machine::FirmwareVersion() const {
  return std::to_string(FirmwareMajor) + "." + std::to_string(FirmwareMinor >> 4U) +
         std::to_string(FirmwareMinor & 15U);
}

void Machine::BeginExchange() {
  // A late reply of the exchange before must not be taken for this one's.
  if (lateReply_) Link.FlushLink();
  lateReply_ = false;
  Link.CommErrorCount = 0;
}

void Machine::EndTry(int attempt) {
  Link.CommErrorCount = static_cast<std::int16_t>(attempt);
  ExpectLateReply();
}

void Machine::FillRandom() {
  for (std::size_t i = 1; i < kCheckByte; ++i) {
    Link.TxFrame[i] = static_cast<std::uint8_t>(255 * program_.Random.Random());
  }
}

bool Machine::ProcessRunReply(std::optional<std::uint8_t> onlyCode) {
  Link.ReceiveFrame();
  if (Link.RxStatus != MachineLink::kGood) return false;
  if (onlyCode && Link.RxFrame[0] != *onlyCode) {
    Link.FlushLink();
    return false;
  }
  // A poll can be garbled into the question for the board, and dealing must not change the set.
  const bool unasked = Link.RxFrame[0] == kReplyBoard && !onlyCode;
  if (!unasked) TakeReply(Link.RxFrame);
  return true;
}

void Machine::TakeReply(const Frame& frame) {
  switch (frame[0]) {
    case kReplyAccepted:
      MachineState = kBusy;
      break;
    case CmdStatus:
    case kReplyStatusLong:
      TakeStatus(StatusReply::Get(frame));
      break;
    case kReplyBoard:
      TakeBoard(BoardReply::Get(frame));
      break;
    case CmdVersion:
      TakeVersion(VersionReply::Get(frame));
      break;
    case CmdSensor:
      TakeSensor(SensorReply::Get(frame));
      break;
    case CmdIdentity:
      TakeIdentity(IdentityReply::Get(frame));
      break;
    case kReplyCounter:
      if (const auto reply = CounterReply::Get(frame); reply.Counter == 0)
        BoardsDealt = reply.Value;
      break;
    case kReplyCardLog:
      CardLog = CardLogReply::Get(frame).Cards;
      break;
    case kReplyTest:
      TakeTest(frame);
      break;
    default:
      break;
  }
}

void Machine::TakeStatus(const StatusReply& reply) {
  if (MachineState == kBusy) {
    std::copy(reply.Pocket.begin() + 1, reply.Pocket.end(), CardCount.begin() + 1);
  }
  MachineState = reply.State == StatusReply::kIdle       ? kIdle
                 : reply.State > StatusReply::kLastError ? kBusy
                                                         : kError;
  MachineError = reply.State;
  TakePedalAndBox(reply);
}

void Machine::TakePedalAndBox(const StatusReply& reply) {
  PedalFlag = reply.Pedal ? 1 : 0;
  BoxFlag = reply.BoardInserted ? 1 : 0;
  if (reply.BoardInserted) BoxInTicks = BoxOutTicks;
  if (reply.SlotActive) BoxOutTicks = 0;
}

void Machine::TakeBoard(const BoardReply& reply) {
  Board& board = program_.Set.Current();
  for (int card = 1; card <= kCards; ++card) {
    const std::uint8_t pocket = reply.Pockets[WirePosition(card) - kPayload];
    board.Cards[static_cast<std::size_t>(card)] =
        pocket < HandOfPocket.size() ? HandOfPocket[pocket] : std::uint8_t{0};
  }
  AnalyzeBoard(board);
}

void Machine::TakeSensor(const SensorReply& reply) {
  if (reply.Selector != SensorCommand::kBoardLabel) return;
  BoardNumberRaw = reply.Value;
  BoardNumberRead = BoardLabelTable[reply.Value];
}

void Machine::TakeIdentity(const IdentityReply& reply) {
  if (reply.Page != 1) return;
  SerialNumber = reply.High;
  HardwareId = reply.Low;
}

void Machine::TakeVersion(const VersionReply& reply) {
  FirmwareMajor = reply.FirmwareMajor;
  FirmwareMinor = reply.FirmwareMinor;
  BootMajor = reply.BootMajor;
  BootMinor = reply.BootMinor;
  MachineFlash = reply.Flash;
  VersionSeen = true;
}

void Machine::TakeTest(const Frame& frame) {
  for (std::size_t i = kTestFirst; i < frame.size(); ++i) {
    TestText += std::to_string(i) + " " + std::to_string(frame[i]) + "  ";
  }
}

constinit const std::array<std::string_view, 47> MachineMessageText = [] {
  std::array<std::string_view, 47> texts{};
  texts[1] = "S card";
  texts[2] = "W card";
  texts[3] = "E card";
  texts[4] = "N card";
  texts[10] = "End of Dealing";
  texts[11] = "Pedal Pressed";
  texts[12] = "Box Inserted";
  texts[18] = "Initialisation OK";
  texts[21] = "Extra card in S";
  texts[22] = "Extra card in W";
  texts[23] = "Extra card in E";
  texts[24] = "extra card in N";
  texts[25] = "Card did not go to S";
  texts[26] = "Card did not go to W";
  texts[27] = "Card did not go to E";
  texts[28] = "Card did not go to N";
  texts[29] = "Break dealing";
  texts[30] = "Card jam";
  texts[31] = "Card Box removed during dealing";
  texts[32] = "Card Box not present, insert";
  texts[33] = "Card did not go";
  texts[34] = "Read Error";
  texts[35] = "Duplicate Card";
  texts[36] = "Cover open";
  texts[45] = "Error durnig break";
  texts[46] = "Cover open";
  return texts;
}();

}  // namespace morvane::machine
