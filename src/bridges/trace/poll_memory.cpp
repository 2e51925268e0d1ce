#include "bridges/trace/poll_memory.h"

#include <algorithm>
#include <span>

#include "wire/same_command.h"
#include "wire/service_commands.h"

namespace morvane::bridges {
namespace {

using wire::CodeOf;
using wire::Frame;

constexpr std::size_t kCapacity = 16;

bool TellsAnEvent(const Frame& reply) {
  if (!wire::Answers<wire::StatusReply>(CodeOf(reply))) return false;
  const auto status = wire::Get<wire::StatusReply>(reply);
  return status.Pedal || status.BoardInserted;
}

/// What a machine says that nobody has touched.
PollMemory::Entry IdlePoll() {
  PollMemory::Entry entry;
  wire::Put(wire::StatusCommand{}, entry.Command);
  wire::Put(wire::StatusReply{}, entry.Reply);
  TraceLine write;
  write.What = Operation::kWrite;
  write.Numbers[1] = wire::kShortFrame;
  Frame image = entry.Reply;
  const auto bytes = std::span(image).first(wire::kShortFrame);
  wire::Scramble(bytes, wire::kStepFromMachine);
  TraceLine read;
  read.What = Operation::kRead;
  read.Numbers[1] = wire::kShortFrame;
  read.Bytes.assign(bytes.begin(), bytes.end());
  entry.Lines = {write, read};
  return entry;
}

bool IsStatus(const Frame& command) { return CodeOf(command) == wire::CmdStatus; }

/// A run begins, goes on or is broken: what the machine is at is known from its next answer only.
bool MovesARun(const Frame& command) {
  const auto code = CodeOf(command);
  return code == wire::CmdDeal || code == wire::CmdRead || code == wire::CmdSort ||
         code == wire::CmdStatus;
}

Frame WithoutAcknowledgements(Frame poll) {
  constexpr unsigned kBoth = wire::StatusCommand::kPedalAck | wire::StatusCommand::kBoxAck;
  auto status = wire::Get<wire::StatusCommand>(poll);
  status.Flags = static_cast<std::uint8_t>(status.Flags & ~kBoth);
  wire::Put(status, poll);
  return poll;
}

}  // namespace

PollMemory::PollMemory() { entries_.push_back(IdlePoll()); }

bool IsPoll(const Frame& command) {
  switch (CodeOf(command)) {
    case wire::CmdStatus:
      return !wire::Get<wire::TestPollCommand>(command).Break;
    case wire::CmdOutputs:
      return !wire::Get<wire::OutputsCommand>(command).Feed;
    default:
      return CodeOf(command) == wire::CmdSensor;
  }
}

bool IsServicePoll(const Frame& command) { return IsPoll(command) && !IsStatus(command); }

bool SamePoll(const Frame& one, const Frame& other) {
  if (!IsPoll(one) || !IsPoll(other) || !IsStatus(one) || !IsStatus(other)) return false;
  return wire::SameCommand(WithoutAcknowledgements(one), WithoutAcknowledgements(other));
}

void PollMemory::Forget(const Frame& command) {
  std::erase_if(entries_, [](const Entry& each) { return IsStatus(each.Command); });
  if (!MovesARun(command)) entries_.push_back(IdlePoll());
}

void PollMemory::Keep(const TracedExchange& exchange) {
  const auto& command = exchange.Command();
  if (!command || !IsPoll(*command) || !exchange.IsWhole()) return;
  if (TellsAnEvent(exchange.ReplyFrame())) return;
  std::erase_if(entries_,
                [&](const Entry& each) { return wire::SameCommand(each.Command, *command); });
  if (entries_.size() == kCapacity) entries_.erase(entries_.begin());
  entries_.push_back({*command, exchange.ReplyFrame(), exchange.Lines()});
}

const PollMemory::Entry* PollMemory::AnswerTo(const Frame& command) const {
  if (!IsPoll(command)) return nullptr;
  auto found = std::find_if(entries_.rbegin(), entries_.rend(), [&](const Entry& each) {
    return wire::SameCommand(each.Command, command);
  });
  if (found == entries_.rend() && IsStatus(command)) {
    found = std::find_if(entries_.rbegin(), entries_.rend(),
                         [](const Entry& each) { return IsStatus(each.Command); });
  }
  return found == entries_.rend() ? nullptr : &*found;
}

}  // namespace morvane::bridges
