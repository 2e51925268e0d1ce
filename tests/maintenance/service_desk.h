#pragma once

#include <gmock/gmock.h>

#include <memory>
#include <string>
#include <vector>

#include "maintenance/service_link.h"
#include "simulator/wired_machine.h"
#include "support/fakes.h"
#include "support/scripted_bridge.h"

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
  /// Spoils the wire bytes of a reply.
  std::function<test::Bytes(const test::Bytes& plain, test::Bytes wire)> Damage;

  void SetUp() override { Use(0x90); }
  /// A machine with firmware 2 and this minor number, whose version is known.
  void Use(std::uint8_t minor, const std::string& more = "") {
    simulator::Options options;
    ASSERT_EQ(simulator::ParseOptions("simulated,speed=0" + more, options), std::nullopt);
    options.FirmwareMinor = minor;
    sim = std::make_unique<simulator::WiredMachine>(options);
    machine.Link.UsbHandle = 7;
    machine.Link.SetLinkTimeouts(200);
    bridge.Answer = [this](const test::Bytes& plain) { return Answered(plain); };
    ASSERT_TRUE(machine.VersionProbe());
    bridge.Sent.clear();
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
    for (const std::uint8_t byte : test::OnTheWire(plain, 23)) {
      if (const auto saying = sim->Hear(byte, desk.Clock.Elapsed())) {
        reply.assign(saying->Wire.begin(), saying->Wire.end());
      }
    }
    return Damage ? Damage(plain, reply) : reply;
  }
};

}  // namespace morvane::maintenance
