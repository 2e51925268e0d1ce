#include "bridges/trace/playback.h"

#include <algorithm>
#include <string_view>

#include "bridges/trace/trace_question.h"
#include "wire/replies.h"
#include "wire/service_commands.h"

namespace morvane::bridges {
namespace {

using Ending = simulator::FrameLog::Ending;

/// Polls of a busy machine follow each other at once. A program that has so many of them answered
/// does not come to what the trace has next.
constexpr int kMostBusyPolls = 20000;

/// So many are five seconds of a run that nobody starts, and half a one of a console.
constexpr int kPollsOfAWhile = 50;

/// Minutes of a console. More would keep the program waiting.
constexpr int kMostAhead = 50000;

constexpr std::string_view kDiffers = "The program does something else than the trace has.";

bool IsBusy(const wire::Frame& reply) {
  return wire::Answers<wire::StatusReply>(wire::CodeOf(reply)) &&
         wire::Get<wire::StatusReply>(reply).State > wire::StatusReply::kLastError;
}

/// What advice is about.
bool AsksForDevices(Operation what) {
  return what == Operation::kGetNumDevices || what == Operation::kGetProductString ||
         what == Operation::kOpen;
}

std::string EndText(const TraceReader& trace) {
  if (!trace.Fault().empty()) return "The trace cannot be read on.\n" + trace.Fault();
  const std::string end = "The trace ends here, at " + trace.Place() + ".\n";
  if (!trace.CutOff()) return end + "What the program does from here on is not in it.";
  return end + "The program that wrote it did not come to its end, or could write no more.";
}

}  // namespace

std::string Playback::Waiting() const {
  const TraceLine* const next = trace_.Next();
  if (againPolls_ < kPollsOfAWhile || next == nullptr || !trouble_.empty()) return "";
  return "The trace waits for " + QuestionName(*next) + ".";
}

std::string Playback::LeftOver() const {
  if (trace_.Played() >= trace_.Needed()) return "";
  return std::to_string(trace_.Played()) + " of " + std::to_string(trace_.Lines()) +
         " operations were played.";
}

std::optional<TraceLine> Playback::Answer(TraceLine asked) {
  if (!trouble_.empty()) return std::nullopt;
  if (trace_.Head().HandsLeftOut && asked.What == Operation::kWrite) LeaveOutHands(asked);
  const bool isFlush = asked.What == Operation::kFlushBuffers;
  if (asked.What == Operation::kRead && again_) return ReadAgain(asked);
  again_ = false;
  if (!isFlush) PassFlushes();
  if (IsNext(asked)) return Take();
  if (isFlush) return asked;
  if (ComesAmongPolls(asked)) PassPolls(asked);
  if (IsNext(asked) || IsNextPoll(asked)) return Take();
  if (auto answer = AnswerAgain(asked)) return answer;
  PassPolls(asked);
  if (IsNext(asked)) return Take();
  Stop(asked);
  return std::nullopt;
}

bool Playback::IsNext(const TraceLine& asked) const {
  const TraceLine* const next = trace_.Next();
  return next != nullptr && SameQuestion(*next, asked);
}

/// A pedal was pressed then and a button now, or a board was inserted: only the polls behind it
/// tell.
bool Playback::IsNextPoll(const TraceLine& asked) const {
  const TraceLine* const next = trace_.Next();
  if (next == nullptr || next->What != Operation::kWrite || asked.What != next->What) return false;
  const auto command = CommandIn(*next);
  const auto now = CommandIn(asked);
  return command && now && SamePoll(*command, *now);
}

TraceLine Playback::Take() {
  TraceLine line = *trace_.Next();
  trace_.Advance();
  againPolls_ = busyPolls_ = 0;
  notAhead_.clear();
  if (AsksForDevices(line.What)) advice_.clear();
  TakeAdvice();
  Follow(line);
  return line;
}

void Playback::TakeAdvice() {
  for (const TraceLine* next = trace_.Next(); next != nullptr && next->What == Operation::kAdvice;
       next = trace_.Next()) {
    advice_.assign(next->Bytes.begin(), next->Bytes.end());
    trace_.Advance();
  }
}

// What passes, for whoever looks on, and for polls to be answered again.

void Playback::Follow(const TraceLine& line) {
  if (line.What == Operation::kOpen) polls_ = {};
  if (line.What == Operation::kWrite) {
    exchange_.Begin(line);
    if (const auto& command = exchange_.Command(); command && !IsPoll(*command)) {
      polls_.Forget(*command);
    }
    const TraceLine* const next = trace_.Next();
    const bool isRead = next != nullptr && next->What == Operation::kRead;
    if (!isRead) NoteReply(TracedExchange::Reply::kNone);
  } else if (line.What == Operation::kRead && exchange_.Running()) {
    NoteReply(exchange_.Take(line));
  } else {
    exchange_.End();
  }
}

void Playback::NoteReply(TracedExchange::Reply reply) {
  const auto command = exchange_.Command().value_or(wire::Frame{});
  switch (reply) {
    case TracedExchange::Reply::kBegun:
      return;
    case TracedExchange::Reply::kNone:
      frames_.Note(command, {}, Ending::kSilent);
      return;
    case TracedExchange::Reply::kBad:
      frames_.Note(command, {}, Ending::kBad);
      return;
    case TracedExchange::Reply::kGood:
      frames_.Note(command, exchange_.ReplyFrame(), Ending::kAnswered);
      polls_.Keep(exchange_);
  }
}

// Polls more or fewer than the trace has.

bool Playback::ComesAmongPolls(const TraceLine& asked) {
  const auto command = CommandIn(asked);
  if (!command || !IsServicePoll(*command) || !PollIsNext()) return false;
  const auto isAsked = [&](const TraceLine& each) { return SameQuestion(each, asked); };
  if (std::any_of(notAhead_.begin(), notAhead_.end(), isAsked)) return false;
  if (LooksAheadFor(asked, wire::CodeOf(*command) == wire::CmdOutputs)) return true;
  notAhead_.push_back(asked);
  return false;
}

/// A console's other polls are the same whatever is switched: only the outputs tell where it
/// stands. A run asks for a label between polls of another kind.
bool Playback::LooksAheadFor(const TraceLine& asked, bool pastServicePolls) {
  const auto isPassed = [&](const TraceLine& line) {
    if (line.What == Operation::kRead || line.What == Operation::kFlushBuffers) return true;
    const auto command = CommandIn(line);
    return command && IsPoll(*command) && (pastServicePolls || !IsServicePoll(*command));
  };
  bool found = false;
  int lines = 0;
  if (!isPassed(*trace_.Next())) return false;
  trace_.LookAhead([&](const TraceLine& line) {
    found = SameQuestion(line, asked);
    return !found && isPassed(line) && ++lines < kMostAhead;
  });
  return found;
}

std::optional<TraceLine> Playback::AnswerAgain(const TraceLine& asked) {
  const auto command = CommandIn(asked);
  const auto* const answer = command && trace_.Next() ? polls_.AnswerTo(*command) : nullptr;
  if (answer == nullptr) return std::nullopt;
  if (IsBusy(answer->Reply) && ++busyPolls_ > kMostBusyPolls) return std::nullopt;
  frames_.Note(*command, answer->Reply, Ending::kAnswered);
  ++againPolls_;
  again_ = true;
  rest_.assign(answer->Lines.rbegin(), answer->Lines.rend() - 1);
  return answer->Lines.front();
}

TraceLine Playback::ReadAgain(const TraceLine& asked) {
  if (rest_.empty() || rest_.back().Numbers[1] != asked.Numbers[1]) {
    TraceLine nothing = asked;
    nothing.Result = UsbXpress::kReadTimedOut;
    return nothing;
  }
  TraceLine line = std::move(rest_.back());
  rest_.pop_back();
  return line;
}

void Playback::PassFlushes() {
  while (trace_.Next() != nullptr && trace_.Next()->What == Operation::kFlushBuffers) Take();
}

bool Playback::PollIsNext() const {
  const TraceLine* const next = trace_.Next();
  if (next == nullptr || next->What != Operation::kWrite) return false;
  const auto command = CommandIn(*next);
  return command && IsPoll(*command);
}

void Playback::PassPolls(const TraceLine& asked) {
  while (PollIsNext() && !IsNext(asked)) {
    Take();
    while (trace_.Next() != nullptr && trace_.Next()->What == Operation::kRead) Take();
    PassFlushes();
  }
}

void Playback::Stop(const TraceLine& asked) {
  const TraceLine* const next = trace_.Next();
  advice_ = next == nullptr ? EndText(trace_) : trace_.Place() + "\n" + std::string(kDiffers);
  trouble_ = next == nullptr ? advice_ : advice_ + "\n" + DifferenceText(*next, asked);
}

}  // namespace morvane::bridges
