#include "simulator/line/line_server.h"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <ostream>

#include "simulator/line/operator_commands.h"

namespace morvane::simulator {
namespace {

using std::chrono::microseconds;

/// Of a longer one the rest is forgotten: it is no command.
constexpr std::size_t kLongestLine = 4096;

timespec TimeSpec(microseconds time) {
  constexpr microseconds::rep kSecond = 1'000'000;
  return {static_cast<time_t>(time.count() / kSecond),
          static_cast<long>(time.count() % kSecond * 1000)};
}

}  // namespace

LineServer::LineServer(std::deque<ServedMachine>& machines, std::ostream& answers,
                       std::ostream& troubles)
    : machines_(machines), answers_(answers), troubles_(troubles) {
  for (ServedMachine& served : machines_) byNumber_.push_back(&served.Machine());
}

void LineServer::Run(Listening listening) {
  wordsOver_ = listening.Words < 0;
  TellTroubles();
  while (!over_) Wait(listening);
}

void LineServer::Wait(const Listening& listening) {
  files_.clear();
  for (const ServedMachine& served : machines_) {
    for (const pollfd& file : served.Files()) files_.push_back(file);
  }
  files_.push_back({MayRead(listening.Words) ? listening.Words : -1, POLLIN, 0});
  files_.push_back({listening.EndWish, POLLIN, 0});
  const timespec time = TimeSpec(Patience());
  ppoll(files_.data(), files_.size(), &time, nullptr);
  auto ready = files_.cbegin();
  for (ServedMachine& served : machines_) {
    const pollfd& bytes = *ready++;
    const pollfd& closings = *ready++;
    served.Carry({bytes, closings});
  }
  TellTroubles();
  if (ready++->revents != 0) TakeWords(listening.Words);
  if (ready->revents != 0) over_ = true;
}

WiredMachine::Time LineServer::Patience() const {
  WiredMachine::Time least = machines_.front().Patience();
  for (const ServedMachine& served : machines_) least = std::min(least, served.Patience());
  return least;
}

/// A program in the background that reads from its terminal is stopped by the system.
bool LineServer::MayRead(int words) const {
  if (wordsOver_) return false;
  const pid_t inFront = tcgetpgrp(words);
  return inFront < 0 || inFront == getpgrp();  // below 0: no terminal of ours
}

void LineServer::TellTroubles() {
  for (ServedMachine& served : machines_) {
    for (std::string trouble; !(trouble = served.NewTrouble()).empty();) {
      troubles_ << "morvane-machine: " << trouble << std::endl;
    }
  }
}

void LineServer::TakeWords(int words) {
  std::array<char, 1024> bytes{};
  const ssize_t got = read(words, bytes.data(), bytes.size());
  wordsOver_ = got <= 0;
  if (!wordsOver_) typed_.append(bytes.data(), static_cast<std::size_t>(got));
  if (wordsOver_ && !typed_.empty()) typed_ += '\n';  // the last line may have no end
  for (std::size_t end = 0; !over_ && (end = typed_.find('\n')) != std::string::npos;) {
    answers_ << Obey(byNumber_, typed_.substr(0, end), over_);
    typed_.erase(0, end + 1);
  }
  if (typed_.size() > kLongestLine) typed_.resize(kLongestLine);
  answers_.flush();
}

}  // namespace morvane::simulator
