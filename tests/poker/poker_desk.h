#pragma once

#include <gmock/gmock.h>

#include <algorithm>
#include <memory>
#include <numeric>
#include <random>
#include <string>
#include <vector>

#include "machine/run_fixture.h"
#include "poker/poker.h"
#include "poker/random_deals.h"
#include "simulator/wired_machine.h"

namespace morvane::poker {

using Button = PokerButton;

inline simulator::Options AtOnce(std::uint64_t seed = 1) {
  simulator::Options options;
  options.Speed = 0;
  options.Seed = seed;
  return options;
}

/// Slot s holds machine card s.
inline PokerDeal DealInOrder() {
  PokerDeal deal{};
  std::iota(deal.begin(), deal.end(), std::uint8_t{0});
  return deal;
}

/// The poker window on the simulated machine, whose operator carries the piles back rightly unless
/// he is told otherwise. Every frame that the program sends is noted.
class PokerDesk : public ::testing::Test {
 protected:
  test::TestDesk desk;
  simulator::WiredMachine sim{AtOnce()};
  test::ScriptedBridge bridge{desk.Clock};
  machine::Machine machine{desk.Random, bridge};
  machine::RunMemory memory;
  machine::RecordingView view{desk};
  Poker poker{desk.Prog, machine, memory};

  void SetUp() override {
    machine.Link.UsbHandle = 7;
    machine.Link.SetLinkTimeouts(200);
    bridge.Answer = [this](const test::Bytes& plain) { return Answered(plain); };
  }
  void TearDown() override {
    EXPECT_EQ(bridge.Overlaps, 0) << "more than one frame outstanding";
    EXPECT_EQ(bridge.Malformed, 0);
  }

  /// Another machine stands there.
  void Replace(const simulator::Options& options) {
    std::destroy_at(&sim);
    std::construct_at(&sim, options);
  }
  /// Opens and goes through the first contact.
  void Contact() {
    poker.Open(view);
    desk.Loop.WaitMs(Poker::kFirstContactMs);
    bridge.Sent.clear();
    exchanges = 0;
  }
  /// The same with an order of `deals` random deals.
  void ContactWithOrder(int deals) {
    Contact();
    PokerOrder order = EmptyOrder(deals);
    FillAtRandom(order, desk.Random);
    poker.Take(order);
  }
  void Press(Button button) {
    ASSERT_TRUE(poker.IsOn(button)) << static_cast<int>(button);
    poker.Press(button);
  }
  /// Deals the current deal up to the end of run `last`.
  void RunTo(int last) {
    for (int run = 1; run <= last; ++run) Press(ButtonOfRun(run));
  }
  static Button ButtonOfRun(int run) {
    return static_cast<Button>(static_cast<int>(Button::FirstDeal) + run - 1);
  }
  /// The top cards of North's pile, as they would be a deal.
  [[nodiscard]] PokerDeal Stacked() const {
    const auto pile = sim.MachineCardsByPocket()[4];
    PokerDeal deal{};
    for (std::size_t slot = 1; slot <= kSlots && slot <= pile.size(); ++slot) {
      deal[slot] = static_cast<std::uint8_t>(pile[pile.size() - slot]);
    }
    return deal;
  }
  [[nodiscard]] std::vector<Button> ButtonsOn() const {
    std::vector<Button> on;
    for (int button = 0; button <= static_cast<int>(Button::ReadNext); ++button) {
      if (poker.IsOn(static_cast<Button>(button))) on.push_back(static_cast<Button>(button));
    }
    return on;
  }
  [[nodiscard]] std::vector<Button> RunButtonsOn() const {
    auto on = ButtonsOn();
    std::erase_if(on, [](Button button) { return button < Button::FirstDeal; });
    return on;
  }
  [[nodiscard]] std::vector<test::Bytes> SentOf(int code) const {
    std::vector<test::Bytes> frames;
    for (const auto& frame : bridge.Sent) {
      if (frame[0] == code) frames.push_back(frame);
    }
    return frames;
  }
  [[nodiscard]] std::string LastBox() const {
    return desk.Ui.Boxes.empty() ? "" : desk.Ui.Boxes.back().Text;
  }
  [[nodiscard]] std::string LastLine() const { return desk.LogLines().back(); }

  /// Spoils the wire bytes of reply number n (from 0, since `Contact`).
  std::function<test::Bytes(int n, test::Bytes wire)> Damage;
  std::function<void(const test::Bytes& plain)> OnCommand;  ///< before the machine hears it
  int exchanges = 0;

 private:
  test::Bytes Answered(const test::Bytes& plain) {
    if (OnCommand) OnCommand(plain);
    test::Bytes reply;
    for (const std::uint8_t byte : test::OnTheWire(plain, 23)) {
      if (const auto saying = sim.Hear(byte, desk.Clock.Elapsed())) {
        reply.assign(saying->Wire.begin(), saying->Wire.end());
      }
    }
    return Damage ? Damage(exchanges++, reply) : reply;
  }
};

}  // namespace morvane::poker
