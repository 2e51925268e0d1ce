#include <mutex>
#include <span>

#include "bridges/contract/contract_suite.h"
#include "bridges/usb/bridge_chip.h"
#include "bridges/usb/usb_direct.h"
#include "platform/system_clock.h"
#include "support/emulated_bus.h"

namespace morvane::bridges {
namespace {

/// The bridge chip at an emulated socket, with a machine behind it.
class UsbDesk final : public ContractDesk {
 public:
  UsbDesk() {
    chip_.Answer([this](std::span<const std::uint8_t> bytes) { return Hear(bytes); });
  }

  [[nodiscard]] UsbXpress& Bridge() override { return usb_; }
  [[nodiscard]] std::chrono::microseconds Now() const override { return clock_.Elapsed(); }
  void CutNextReply(std::uint8_t bytes) override {
    machine_.Faults().AtExchange(1, simulator::LinkFault::CutReply(bytes));
  }
  void DelayNextReply() override {
    const std::lock_guard lock(mutex_);
    delayed_ = true;
  }
  /// One whose command has not been heard yet comes by itself then.
  void LetLateReplyCome() override { chip_.Say(TakeLate()); }
  /// Line 0 is what the last request to it has left.
  void ExpectLatch(bool on) override {
    bool line = false;
    for (const ControlRequest& request : chip_.Requests()) {
      if (request.Value != chip::WriteLatch(0, 0).Value) continue;
      if ((request.Index & 1U) != 0) line = (request.Index >> 8U & 1U) != 0;
    }
    EXPECT_EQ(line, on);
  }

 private:
  /// In the thread of the emulation.
  Bytes Hear(std::span<const std::uint8_t> bytes) {
    Bytes said;
    for (const std::uint8_t byte : bytes) {
      const auto saying = machine_.Hear(byte, Now());
      if (saying) said.insert(said.end(), saying->Wire.begin(), saying->Wire.end());
    }
    const std::lock_guard lock(mutex_);
    if (!delayed_) return said;
    late_ = said;
    return {};
  }
  Bytes TakeLate() {
    const std::lock_guard lock(mutex_);
    delayed_ = false;
    return late_;
  }

  SystemClock clock_;
  simulator::WiredMachine machine_{simulator::Talk::Fast()};
  std::mutex mutex_;
  bool delayed_ = false;
  Bytes late_;
  test::EmulatedBus bus_;
  test::EmulatedUsb& chip_{bus_.Attach()};
  UsbDirect usb_{{}};
};

INSTANTIATE_TEST_SUITE_P(Each, UsbXpressContract,
                         testing::Combine(testing::Values(ContractBridge{"Usb", HoldAt<UsbDesk>}),
                                          testing::ValuesIn(EveryContractCase())),
                         NameOfHolding);

}  // namespace
}  // namespace morvane::bridges
