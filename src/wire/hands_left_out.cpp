#include "wire/hands_left_out.h"

#include <algorithm>
#include <functional>

#include "wire/commands.h"
#include "wire/frame_text.h"
#include "wire/picture_replies.h"
#include "wire/replies.h"

namespace morvane::wire {
namespace {

void ClearPayload(Frame& frame) { std::ranges::fill(Payload(frame), std::uint8_t{0}); }

/// Leaves nothing but the code.
void ClearAll(Frame& frame) {
  std::ranges::fill(Filler(frame), std::uint8_t{0});
  ClearPayload(frame);
}

/// The list `R` in the order of its numbers, which no card has a part in. No other byte of the
/// frame means anything.
template <typename R>
void SortCards(Frame& frame, CardBytes R::*list) {
  auto reply = Get<R>(frame);
  std::ranges::sort((reply.*list).Bytes, std::greater<>());
  ClearAll(frame);
  PutRows(reply, frame);
}

/// A rank that belongs to no card says what went wrong.
void ClearCard(Frame& frame) {
  auto verdict = Get<VerdictReply>(frame);
  if (verdict.Rank != ErrorVerdictReply::kNotTaken) verdict.Rank = 0;
  verdict.Suit = 0;
  PutRows(verdict, frame);
}

}  // namespace

void LeaveOutHandsOfCommand(Frame& command) {
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
  switch (CodeOf(reply)) {
    case BoardReply::Code:
      return SortCards(reply, &BoardReply::Pockets);
    case CardLogReply::Code:
      return SortCards(reply, &CardLogReply::Cards);
    case StatusReply::LongCode:
    case PictureLineReply::Code:
    case ErrorPictureLineReply::Code:
      return ClearPayload(reply);
    case VerdictReply::Code:
    case ErrorVerdictReply::Code:
      return ClearCard(reply);
    case TestReply::Code:
    case SymbolMeasureReply::Code:
    case SuitMeasureReply::Code:
      return ClearAll(reply);
    default:
      if (ReplyName(CodeOf(reply)).empty()) ClearAll(reply);
  }
}

}  // namespace morvane::wire
