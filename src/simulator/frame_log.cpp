#include "simulator/frame_log.h"

#include "wire/commands.h"
#include "wire/replies.h"

namespace morvane::simulator {

using namespace wire;

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
  if (before.Command[0] != CmdStatus || now.Command[0] != CmdStatus) return false;
  if (Get<StatusCommand>(FrameOf(before.Command)).Flags !=
      Get<StatusCommand>(FrameOf(now.Command)).Flags) {
    return false;
  }
  if (now.How == Ending::kSilent) return true;
  const auto first = Get<StatusReply>(FrameOf(before.Reply));
  const auto second = Get<StatusReply>(FrameOf(now.Reply));
  return first.State == second.State && first.SlotActive == second.SlotActive &&
         first.Pedal == second.Pedal && first.BoardInserted == second.BoardInserted;
}

void FrameLog::Note(const Frame& command, const Frame& reply, Ending ending) {
  ++exchanges_;
  Entry entry = EntryOf(command, reply, ending);
  if (count_ > 0) {
    Entry& last = entries_[(first_ + count_ - 1) % kCapacity];
    if (Repeats(last, entry)) {
      entry.Times = last.Times + 1;
      last = entry;
      return;
    }
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
