#include "simulator/line/served_machine.h"

#include <algorithm>

namespace morvane::simulator {
namespace {

/// So long it may take until a program that comes back to the foreground reads what is typed.
constexpr ServedMachine::Time kLongestWait{500'000};
/// So long until it is seen that the control line drops, of which the system tells nobody. Programs
/// leave it down for half a second.
constexpr ServedMachine::Time kLineCheck{50'000};

/// A trouble that is not the last one told.
std::string IfNew(const std::string& trouble, std::string& told) {
  if (trouble == told) return "";
  told = trouble;
  return told;
}

}  // namespace

ServedMachine::Time ServedMachine::Patience() const {
  const Time longest = machine_.LatchOn() ? kLineCheck : kLongestWait;
  const Time now = clock_.Elapsed();
  return std::clamp(line_.NextAt().value_or(now + longest) - now, Time(0), longest);
}

void ServedMachine::Carry(const Awaited& ready) {
  if (ready[1].revents != 0 && terminal_.TakeClosing()) {
    line_.Clear();
    SetLatch(false);
    if (listener_ != nullptr) listener_->Closed(clock_.Elapsed());
  }
  SetLatch(terminal_.LineIsUp());
  Hear();
  Say();
}

void ServedMachine::SetLatch(bool on) {
  if (on == machine_.LatchOn()) return;
  machine_.TakeLatch(on);
  if (listener_ != nullptr) listener_->Latched(on, clock_.Elapsed());
}

// No more at a time, so that a program that babbles leaves the others their turn.
void ServedMachine::Hear() {
  std::array<std::uint8_t, 1024> bytes{};
  const auto heard = std::span(bytes).first(terminal_.Read(bytes));
  if (heard.empty()) return;
  const Time now = clock_.Elapsed();
  if (listener_ != nullptr) listener_->Heard(heard, now);
  line_.Hear(heard, now);
}

void ServedMachine::Say() {
  std::array<std::uint8_t, 1024> bytes{};
  const Time now = clock_.Elapsed();
  const auto ready = std::span(bytes).first(line_.Take(bytes, now));
  if (ready.empty()) return;
  const auto said = ready.first(terminal_.Write(ready));
  if (listener_ != nullptr && !said.empty()) listener_->Said(said, now);
}

std::string ServedMachine::NewTrouble() {
  std::string trouble = IfNew(machine_.Trouble(), told_);
  if (!trouble.empty() || listener_ == nullptr) return trouble;
  return IfNew(listener_->Trouble(), listenersTold_);
}

}  // namespace morvane::simulator
