#include "bridges/poll_memory.h"

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

void PollMemory::Keep(const TracedExchange& exchange) {
  const auto& command = exchange.Command();
  if (!command || !IsPoll(*command) || TellsAnEvent(exchange.ReplyFrame())) return;
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
  if (found == entries_.rend() && CodeOf(command) == wire::CmdStatus) {
    found = std::find_if(entries_.rbegin(), entries_.rend(),
                         [](const Entry& each) { return CodeOf(each.Command) == wire::CmdStatus; });
  }
  return found == entries_.rend() ? nullptr : &*found;
}

}  // namespace morvane::bridges
