#pragma once

#include <gmock/gmock.h>

#include <memory>
#include <string>
#include <vector>

#include "maintenance/service_link.h"
#include "simulator/wired_machine.h"
#include "support/fakes.h"
#include "support/scripted_bridge.h"
#include "text/text.h"

namespace morvane::maintenance {

/// The simulated machine at a line whose every frame is noted, and the service's way to it.
class ServiceDesk : public ::testing::Test {
 protected:
  test::TestDesk desk;
  std::unique_ptr<simulator::WiredMachine> sim;
  test::ScriptedBridge bridge{desk.Clock};
  machine::Machine machine{desk.Random, bridge};
  int recoveries = 0;
  ServiceLink link{desk.Prog, machine, [this] { ++recoveries; }};
  /// Called while a frame is on its way.
  std::function<void(const test::Bytes& plain)> OnFrame;
  /// The machine does not hear these frames.
  std::function<bool(const test::Bytes& plain)> Deaf;
  /// Spoils the wire bytes of a reply.
  std::function<test::Bytes(const test::Bytes& plain, test::Bytes wire)> Damage;

  void SetUp() override { Use(0x90); }
  /// A machine with firmware 2 and this minor number, whose version is known.
  void Use(std::uint8_t minor, const std::string& more = "") {
    Connect("firmware=2." + Hex2(minor) + more);
    ASSERT_TRUE(machine.VersionProbe());
    bridge.Sent.clear();
  }
  /// A machine with these options, nothing of which is known.
  void Connect(const std::string& more) {
    simulator::Options options;
    ASSERT_EQ(
        simulator::ParseOptions("simulated,speed=0" + (more.empty() ? "" : "," + more), options),
        std::nullopt);
    sim = std::make_unique<simulator::WiredMachine>(options);
    machine.Link.UsbHandle = 7;
    machine.Link.SetLinkTimeouts(200);
    bridge.OnLatch = [this](bool on) { sim->TakeLatch(on); };
    bridge.Answer = [this](const test::Bytes& plain) { return Answered(plain); };
    bridge.Sent.clear();
    bridge.Calls.clear();
  }
  /// Byte 1 of the frames sent with this code.
  [[nodiscard]] std::vector<int> SubCodes(int code) const {
    std::vector<int> codes;
    for (const auto& frame : bridge.Sent) {
      if (frame[0] == code) codes.push_back(frame[1]);
    }
    return codes;
  }

 private:
  test::Bytes Answered(const test::Bytes& plain) {
    test::Bytes reply;
    if (Deaf && Deaf(plain)) return reply;
    for (const std::uint8_t byte : test::OnTheWire(plain, 23)) {
      if (const auto saying = sim->Hear(byte, desk.Clock.Elapsed())) {
        reply.assign(saying->Wire.begin(), saying->Wire.end());
        if (!machine.OnUnasked) continue;  // nobody would know what it is
        reply.insert(reply.end(), saying->Unasked.begin(), saying->Unasked.end());
      }
    }
    if (OnFrame) OnFrame(plain);
    return Damage ? Damage(plain, reply) : reply;
  }
};

}  // namespace morvane::maintenance
