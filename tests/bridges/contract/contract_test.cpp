#include "bridges/contract/contract_suite.h"
#include "bridges/contract/simulated_desk.h"
#include "bridges/trace/replay_bridge.h"
#include "bridges/trace/traced_bridge.h"
#include "bridges/usb/usb_xpress_library.h"
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
                                     ContractBridge{"Library", HoldAt<LibraryDesk>},
                                     ContractBridge{"Replay", HoldInReplay}),
                     testing::ValuesIn(EveryContractCase())),
    NameOfHolding);

}  // namespace
}  // namespace morvane::bridges
