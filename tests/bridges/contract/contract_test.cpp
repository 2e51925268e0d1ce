#include <poll.h>

#include <array>
#include <optional>

#include "bridges/contract/contract_suite.h"
#include "bridges/contract/simulated_desk.h"
#include "bridges/serial_bridge.h"
#include "bridges/trace/replay_bridge.h"
#include "bridges/trace/traced_bridge.h"
#include "bridges/usb/usb_xpress_library.h"
#include "platform/system_clock.h"
#include "simulator/line/paced_line.h"
#include "simulator/line/pseudo_terminal.h"
#include "support/fakes.h"
#include "support/passing_bridge.h"
#include "support/usb_library_double/loaded_double.h"

namespace morvane::bridges {
namespace {

/// The library, with the simulated machine behind it.
class LibraryDesk final : public SimulatedDesk {
 public:
  [[nodiscard]] UsbXpress& Bridge() override { return usb_; }

 private:
  test::UsbLibraryDesk behind_{machine_};
  test::LoadedDouble double_{behind_};
  UsbXpressLibrary usb_{test::LoadedDouble::Path()};
};

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

/// The simulated machine, with a trace that is written.
class TracedSimulation final : public SimulatedDesk {
 public:
  explicit TracedSimulation(const TraceOrder& order)
      : usb_(std::make_unique<test::PassingBridge>(machine_), order, clock_) {
    EXPECT_EQ(usb_.File().Trouble(), "");
  }
  [[nodiscard]] UsbXpress& Bridge() override { return usb_; }

 private:
  TracedBridge usb_;
};

/// A trace in the place of the machine, of which everything has been asked before.
class ReplayDesk final : public ContractDesk {
 public:
  explicit ReplayDesk(TraceReader trace) : usb_(std::move(trace), clock_) {}
  ~ReplayDesk() override {
    EXPECT_EQ(usb_.Play().Trouble(), "");
    EXPECT_EQ(usb_.Play().Trace().Next(), nullptr) << "all of it was asked for";
  }
  ReplayDesk(const ReplayDesk&) = delete;
  ReplayDesk& operator=(const ReplayDesk&) = delete;

  [[nodiscard]] UsbXpress& Bridge() override { return usb_; }
  [[nodiscard]] std::chrono::microseconds Now() const override { return clock_.Elapsed(); }
  void CutNextReply(std::uint8_t /*bytes*/) override {}
  void DelayNextReply() override {}
  void ExpectLatch(bool /*on*/) override {}

 private:
  test::VirtualClock clock_;
  ReplayBridge usb_;
};

/// Held at a machine whose trace is written, and again by the trace.
void HoldInReplay(const ContractCase& what) {
  const test::TempFolder folder;
  const TraceOrder order{.Path = folder / "run.trace", .Machine = "simulated"};
  {
    TracedSimulation desk(order);
    what.Hold(desk);
  }
  TraceReader trace;
  ASSERT_EQ(trace.Open(order.Path), std::nullopt);
  ReplayDesk desk(std::move(trace));
  what.Hold(desk);
}

INSTANTIATE_TEST_SUITE_P(
    Each, UsbXpressContract,
    testing::Combine(testing::Values(ContractBridge{"Simulated", HoldAt<SimulatedDesk>},
                                     ContractBridge{"Serial", HoldAt<SerialDesk>},
                                     ContractBridge{"Library", HoldAt<LibraryDesk>},
                                     ContractBridge{"Replay", HoldInReplay}),
                     testing::ValuesIn(EveryContractCase())),
    NameOfHolding);

}  // namespace
}  // namespace morvane::bridges
