#include "simulator/frame_log.h"

#include "wire/picture_commands.h"
#include "wire/service_commands.h"

namespace morvane::simulator {

using namespace wire;

namespace {

/// The service polls so many frames in turn.
constexpr std::size_t kServiceFrames = 6;

bool IsServicePoll(std::uint8_t code) { return code == CmdOutputs || code == CmdSensor; }

/// One of a picture's, which are asked for one after the other.
bool IsLine(std::uint8_t code) { return code == CmdPictureLine || code == CmdErrorPictureLine; }

/// Another flag, state or event is worth a line; counts of cards are not.
bool SameStatus(const StatusReply& before, const StatusReply& now) {
  return before.State == now.State && before.SlotActive == now.SlotActive &&
         before.Pedal == now.Pedal && before.BoardInserted == now.BoardInserted;
}

/// Another switch or label is; measures are not.
bool SameSensors(const Frame& before, const Frame& now) {
  if (CodeOf(before) != CodeOf(now)) return false;
  if (CodeOf(now) == PhotoReply::Code) {
    return Get<PhotoReply>(before).Switches == Get<PhotoReply>(now).Switches;
  }
  const auto first = Get<LabelReply>(before);
  const auto second = Get<LabelReply>(now);
  return first.Head.Selector == second.Head.Selector &&
         first.Head.FlipPlate == second.Head.FlipPlate &&
         (first.Head.Selector != SensorCommand::kBoardLabel || first.Label == second.Label);
}

bool SameSwitching(const Frame& before, const Frame& now) {
  const auto first = Get<OutputsCommand>(before);
  const auto second = Get<OutputsCommand>(now);
  return first.Outputs == second.Outputs && first.Feed == second.Feed;
}

}  // namespace

FrameLog::Entry FrameLog::EntryOf(const Frame& command, const Frame& reply, Ending ending) {
  Entry entry;
  entry.How = ending;
  std::copy_n(command.begin(), kTextBytes, entry.Command.begin());
  std::copy_n(reply.begin(), kTextBytes, entry.Reply.begin());
  return entry;
}

Frame FrameLog::FrameOf(const Head& head) {
  Frame frame{};
  std::copy(head.begin(), head.end(), frame.begin());
  return frame;
}

bool FrameLog::Repeats(const Entry& before, const Entry& now) {
  if (before.How != now.How) return false;
  if (now.How == Ending::kBad) return true;
  const Frame command = FrameOf(now.Command);
  const Frame earlier = FrameOf(before.Command);
  if (CodeOf(command) != CodeOf(earlier)) return false;
  const Frame reply = FrameOf(now.Reply);
  const bool silent = now.How == Ending::kSilent;
  if (IsLine(CodeOf(command))) return silent || CodeOf(FrameOf(before.Reply)) == CodeOf(reply);
  if (CodeOf(command) == CmdStatus) {
    return Get<StatusCommand>(command).Flags == Get<StatusCommand>(earlier).Flags &&
           (silent || SameStatus(Get<StatusReply>(FrameOf(before.Reply)), Get<StatusReply>(reply)));
  }
  return IsServicePoll(CodeOf(command)) && SameSwitching(earlier, command) &&
         (silent || SameSensors(FrameOf(before.Reply), reply));
}

/// The last line, or of the service's polls one of the last round.
FrameLog::Entry* FrameLog::Repeated(const Entry& now) {
  const std::size_t back = IsServicePoll(now.Command[0]) ? kServiceFrames : 1;
  for (std::size_t at = count_; at > 0 && at + back > count_; --at) {
    Entry& entry = entries_[(first_ + at - 1) % kCapacity];
    if (Repeats(entry, now)) return &entry;
    if (!IsServicePoll(entry.Command[0])) return nullptr;
  }
  return nullptr;
}

void FrameLog::Note(const Frame& command, const Frame& reply, Ending ending) {
  ++exchanges_;
  Entry entry = EntryOf(command, reply, ending);
  if (Entry* const repeated = Repeated(entry)) {
    entry.Times = repeated->Times + 1;
    *repeated = entry;
    return;
  }
  entries_[(first_ + count_) % kCapacity] = entry;
  if (count_ < kCapacity) {
    ++count_;
  } else {
    first_ = (first_ + 1) % kCapacity;
  }
}

std::string FrameLog::Text(std::size_t at) const {
  const Entry& entry = entries_[(first_ + at) % kCapacity];
  const std::string times = entry.Times > 1 ? std::to_string(entry.Times) + " x " : "";
  if (entry.How == Ending::kBad) return times + "bytes with a bad check";
  if (entry.How == Ending::kUnasked) return "unasked: " + ReplyText(FrameOf(entry.Reply));
  const std::string command = times + CommandText(FrameOf(entry.Command));
  if (entry.How == Ending::kSilent) return command + " -> no answer";
  return command + " -> " + ReplyText(FrameOf(entry.Reply));
}

}  // namespace morvane::simulator
