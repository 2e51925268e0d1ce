#include "simulator/line/line_server.h"

#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <ostream>

#include "simulator/line/operator_commands.h"

namespace morvane::simulator {
namespace {

using std::chrono::microseconds;

/// So long it may take until a program that comes back to the foreground reads what is typed.
constexpr microseconds kLongestWait{500'000};
/// So long until it is seen that the control line drops, of which the system tells nobody. Programs
/// leave it down for half a second.
constexpr microseconds kLineCheck{50'000};

timespec TimeSpec(microseconds time) {
  constexpr microseconds::rep kSecond = 1'000'000;
  return {static_cast<time_t>(time.count() / kSecond),
          static_cast<long>(time.count() % kSecond * 1000)};
}

}  // namespace

void LineServer::Run(Listening listening) {
  wordsOver_ = listening.Words < 0;
  TellTrouble();
  while (!over_) Wait(listening);
}

void LineServer::Wait(const Listening& listening) {
  enum : std::size_t { kBytes, kClosings, kEnd, kWords };
  std::array<pollfd, 4> files{{{terminal_.Bytes(), POLLIN, 0},
                               {terminal_.Closings(), POLLIN, 0},
                               {listening.EndWish, POLLIN, 0},
                               {MayRead(listening.Words) ? listening.Words : -1, POLLIN, 0}}};
  const microseconds now = clock_.Elapsed();
  const microseconds longest = machine_.LatchOn() ? kLineCheck : kLongestWait;
  const auto wait =
      std::clamp(line_.NextAt().value_or(now + longest) - now, microseconds(0), longest);
  const timespec time = TimeSpec(wait);
  ppoll(files.data(), files.size(), &time, nullptr);
  if (files[kClosings].revents != 0 && terminal_.TakeClosing()) {
    line_.Clear();
    SetLatch(false);
  }
  SetLatch(terminal_.LineIsUp());
  Carry();
  if (files[kWords].revents != 0) TakeWords(listening.Words);
  if (files[kEnd].revents != 0) over_ = true;
}

/// A program in the background that reads from its terminal is stopped by the system.
bool LineServer::MayRead(int words) const {
  if (wordsOver_) return false;
  const pid_t inFront = tcgetpgrp(words);
  return inFront < 0 || inFront == getpgrp();  // below 0: no terminal of ours
}

void LineServer::SetLatch(bool on) {
  if (on != machine_.LatchOn()) machine_.TakeLatch(on);
}

void LineServer::Carry() {
  std::array<std::uint8_t, 1024> bytes{};
  while (const std::size_t heard = terminal_.Read(bytes)) {
    line_.Hear(std::span(bytes).first(heard), clock_.Elapsed());
  }
  const std::size_t said = line_.Take(bytes, clock_.Elapsed());
  if (said > 0) terminal_.Write(std::span(bytes).first(said));
  TellTrouble();
}

void LineServer::TellTrouble() {
  if (machine_.Trouble() == told_) return;
  told_ = machine_.Trouble();
  if (!told_.empty()) troubles_ << "morvane-machine: " << told_ << std::endl;
}

void LineServer::TakeWords(int words) {
  std::array<char, 1024> bytes{};
  const ssize_t got = read(words, bytes.data(), bytes.size());
  wordsOver_ = got <= 0;
  if (!wordsOver_) typed_.append(bytes.data(), static_cast<std::size_t>(got));
  if (wordsOver_ && !typed_.empty()) typed_ += '\n';  // the last line may have no end
  for (std::size_t end = 0; (end = typed_.find('\n')) != std::string::npos;) {
    answers_ << Obey(machine_, typed_.substr(0, end), over_);
    typed_.erase(0, end + 1);
  }
  answers_.flush();
}

}  // namespace morvane::simulator
