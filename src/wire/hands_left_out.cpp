#include "wire/hands_left_out.h"

#include <algorithm>
#include <array>
#include <functional>

#include "wire/commands.h"
#include "wire/flash_replies.h"
#include "wire/frame_text.h"
#include "wire/picture_replies.h"
#include "wire/same_command.h"
#include "wire/service_commands.h"

namespace morvane::wire {
namespace {

/// Leaves nothing but the code.
void ClearAll(Frame& frame) { frame = {CodeOf(frame)}; }

void ClearPayload(Frame& frame) { std::ranges::fill(Payload(frame), std::uint8_t{0}); }

/// Leaves the code and these fields.
template <typename F>
void KeepOnly(const F& fields, Frame& frame) {
  ClearAll(frame);
  PutRows(fields, frame);
}

// By the reply.

template <typename R>
void Keep(Frame& reply) {
  KeepOnly(Get<R>(reply), reply);
}

/// The list `R` in the order of its numbers, which no card has a part in.
template <typename R, CardBytes R::*kList>
void SortCards(Frame& frame) {
  auto reply = Get<R>(frame);
  std::ranges::sort((reply.*kList).Bytes, std::greater<>());
  KeepOnly(reply, frame);
}

template <typename R>
void KeepNumberOfLine(Frame& frame) {
  KeepOnly(R{.Line = Get<R>(frame).Line}, frame);
}

/// A rank that belongs to no card says what went wrong.
void KeepError(Frame& frame) {
  const auto verdict = Get<VerdictReply>(frame);
  VerdictReply kept{.Error = verdict.Error};
  if (verdict.Rank == ErrorVerdictReply::kNotTaken) kept.Rank = verdict.Rank;
  KeepOnly(kept, frame);
}

/// Before a run the first number is asked for, and what a machine leaves behind it may be anything.
void KeepCounters(Frame& frame) {
  Get<CounterReply>(frame).Counter == 0 ? Keep<CounterReply>(frame) : Keep<CounterPageReply>(frame);
}

void KeepStored(Frame& frame) {
  const bool isIdentity = Get<SetIdentityReply>(frame).Area == SetIdentityCommand::kArea;
  isIdentity ? Keep<SetIdentityReply>(frame) : Keep<BootAreaReply>(frame);
}

void KeepSensor(Frame& frame) {
  switch (Get<SensorHead>(frame).Selector) {
    case kMotors1And2.Selector:
    case kMotors3And4.Selector:
      return Keep<MotorReply>(frame);
    case kClimate.Selector:
      return Keep<ClimateReply>(frame);
    case kLabelSensor.Selector:
      return Keep<LabelReply>(frame);
    case BoardSensorCommand::kSelector:
      return Keep<BoardSensorReply>(frame);
    default:
      return Keep<SpareSensorReply>(frame);
  }
}

/// The largest block has all that the others have.
void KeepBlock(Frame& frame) { Keep<ParametersReply<ThresholdBlock>>(frame); }

struct Row {
  std::uint8_t Code;
  void (*LeaveOut)(Frame& reply);
};

// Whose code has no row here tells too much, or nobody knows what.
constexpr std::array<Row, 24> kReplies{
    {{DownloadReply::Code, Keep<DownloadReply>},
     {DownloadReply::kBlockCode, Keep<DownloadReply>},
     {EraseErrorsReply::Code, Keep<EraseErrorsReply>},
     {EraseRecordReply::Code, Keep<EraseRecordReply>},
     {WriteRecordReply::Code, Keep<WriteRecordReply>},
     {ParametersReply<ThresholdBlock>::Code, KeepBlock},
     {DieIdentityReply::Code, Keep<DieIdentityReply>},
     {PhotoReply::Code, Keep<PhotoReply>},
     {LogicVersionReply::Code, Keep<LogicVersionReply>},
     {PictureLineReply::Code, KeepNumberOfLine<PictureLineReply>},
     {ErrorPictureLineReply::Code, KeepNumberOfLine<ErrorPictureLineReply>},
     {CaptureReply::Code, Keep<CaptureReply>},
     {VerdictReply::Code, KeepError},
     {ErrorVerdictReply::Code, KeepError},
     {BootAreaReply::Code, KeepStored},
     {StatusReply::Code, Keep<StatusReply>},
     {StatusReply::LongCode, Keep<StatusReply>},
     {AcceptedReply::Code, Keep<AcceptedReply>},
     {VersionReply::Code, Keep<VersionReply>},
     {IdentityReply::Code, Keep<IdentityReply>},
     {CounterReply::Code, KeepCounters},
     {SensorReply::Code, KeepSensor},
     {BoardReply::Code, SortCards<BoardReply, &BoardReply::Pockets>},
     {CardLogReply::Code, SortCards<CardLogReply, &CardLogReply::Cards>}}};

/// All is random in the poll of a test deal but for the break.
bool IsDialogPoll(const Frame& command) {
  Frame again = command;
  PutRows(Get<DialogPollCommand>(command), again);
  return again == command;
}

/// It goes on behind an error with the same polls.
bool BelongsToARun(const Frame& command) {
  return CodeOf(command) == CmdDeal || CodeOf(command) == CmdStatus;
}

}  // namespace

void LeaveOutHandsOfCommand(Frame& command) {
  KeepTold(command);
  switch (CodeOf(command)) {
    case CmdDeal:
    case CmdRead:
    case CmdRoute:
      return ClearPayload(command);
    default:
      if (CommandName(CodeOf(command)).empty()) ClearAll(command);
  }
}

void LeaveOutHandsOfReply(Frame& reply) {
  const auto* const row = std::ranges::find(kReplies, CodeOf(reply), &Row::Code);
  row == kReplies.end() ? ClearAll(reply) : row->LeaveOut(reply);
}

void RandomLeftOut::LeaveOut(Frame& command) {
  if (CodeOf(command) == CmdRoute) {
    inTestDeal_ = Get<RouteCommand>(command).TestDeal;
  } else if (!BelongsToARun(command)) {
    inTestDeal_ = false;
  }
  const bool isTestPoll = inTestDeal_ && CodeOf(command) == CmdStatus && !IsDialogPoll(command);
  isTestPoll ? KeepTestPoll(command) : KeepTold(command);
}

}  // namespace morvane::wire
