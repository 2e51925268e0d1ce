#include <poll.h>

#include <array>
#include <optional>

#include "bridges/contract/contract_suite.h"
#include "bridges/serial_bridge.h"
#include "platform/system_clock.h"
#include "simulator/line/paced_line.h"
#include "simulator/line/pseudo_terminal.h"
#include "support/passing_bridge.h"

namespace morvane::bridges {
namespace {

/// Counts what is written.
class CountedBridge final : public test::PassingBridge {
 public:
  using PassingBridge::PassingBridge;

  Status Write(Handle handle, std::span<const std::uint8_t> bytes,
               std::uint32_t& written) override {
    const Status status = PassingBridge::Write(handle, bytes, written);
    Written += written;
    return status;
  }
  std::size_t Written = 0;
};

/// A pseudo-terminal with a machine at its other end, which is served when the test says so.
class SerialDesk final : public ContractDesk {
 public:
  SerialDesk() { EXPECT_FALSE(terminal_.Open()); }

  [[nodiscard]] UsbXpress& Bridge() override {
    if (!bridge_) usb_.emplace(bridge_.emplace(terminal_.Path()));
    return *usb_;
  }
  [[nodiscard]] std::chrono::microseconds Now() const override { return clock_.Elapsed(); }
  void Carry() override {
    if (terminal_.TakeClosing()) line_.Clear();
    machine_.TakeLatch(terminal_.LineIsUp());
    while (heard_ < usb_->Written && Hear()) continue;
    if (!delayed_) LetLateReplyCome();
  }
  void CutNextReply(std::uint8_t bytes) override {
    machine_.Faults().AtExchange(1, simulator::LinkFault::CutReply(bytes));
  }
  void DelayNextReply() override { delayed_ = true; }
  void LetLateReplyCome() override {
    delayed_ = false;
    std::array<std::uint8_t, 256> bytes{};
    terminal_.Write(std::span(bytes).first(line_.Take(bytes, Now())));
  }
  void ExpectLatch(bool on) override { EXPECT_EQ(machine_.LatchOn(), on); }

 private:
  /// The system hands over what was written a little later. False when it does not.
  bool Hear() {
    std::array<std::uint8_t, 256> bytes{};
    pollfd ready{terminal_.Bytes(), POLLIN, 0};
    if (poll(&ready, 1, ContractClient::kLongMs) != 1) return false;
    const std::size_t count = terminal_.Read(bytes);
    line_.Hear(std::span(bytes).first(count), Now());
    heard_ += count;
    return count > 0;
  }

  SystemClock clock_;
  simulator::WiredMachine machine_{simulator::Talk::Fast()};
  simulator::PseudoTerminal terminal_;
  simulator::PacedLine line_{machine_, simulator::Pace::kFast};
  std::optional<SerialBridge> bridge_;
  std::optional<CountedBridge> usb_;
  std::size_t heard_ = 0;
  bool delayed_ = false;
};

INSTANTIATE_TEST_SUITE_P(Serial, UsbXpressContract,
                         testing::Combine(testing::Values(ContractBridge{"Serial",
                                                                         HoldAt<SerialDesk>}),
                                          testing::ValuesIn(EveryContractCase())),
                         NameOfHolding);

}  // namespace
}  // namespace morvane::bridges
