#pragma once

#include <algorithm>

#include "bridges/contract/contract.h"

namespace morvane::bridges {

/// The simulated machine, which carries its bytes itself; no time passes but that of the reads.
class SimulatedDesk : public ContractDesk {
 public:
  [[nodiscard]] UsbXpress& Bridge() override { return machine_; }
  [[nodiscard]] std::chrono::microseconds Now() const override { return clock_.Elapsed(); }
  void CutNextReply(std::uint8_t bytes) override {
    machine_.Faults().AtExchange(1, simulator::LinkFault::CutReply(bytes));
  }
  void DelayNextReply() override {
    machine_.Faults().AtExchange(1, simulator::LinkFault::LateReply());
  }
  void ExpectLatch(bool on) override { EXPECT_EQ(machine_.LatchOn(), on); }

 protected:
  test::VirtualClock clock_;
  simulator::SimulatedMachine machine_{simulator::Talk::Fast(), clock_};
};

}  // namespace morvane::bridges
