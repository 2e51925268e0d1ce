#include "simulator/fault_plan.h"

namespace morvane::simulator {

void FaultPlan::AtExchange(int exchange, LinkFault fault) {
  entries_.push_back({kAnyCode, exchange - exchanges_, fault});
}

void FaultPlan::AtCommand(std::uint8_t code, int occurrence, LinkFault fault) {
  entries_.push_back({code, occurrence, fault});
}

void FaultPlan::Clear() {
  entries_.clear();
  silentFrom_ = std::numeric_limits<int>::max();
}

LinkFault FaultPlan::Next(int code) {
  ++exchanges_;
  LinkFault fault;
  for (Entry& entry : entries_) {
    if (entry.Code != kAnyCode && entry.Code != code) continue;
    if (--entry.Countdown == 0) fault = entry.Fault;
  }
  return exchanges_ >= silentFrom_ ? LinkFault::LoseCommand() : fault;
}

}  // namespace morvane::simulator
