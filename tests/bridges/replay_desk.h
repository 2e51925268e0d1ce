#pragma once

#include <gmock/gmock.h>

#include <memory>

#include "bridges/trace/replay_bridge.h"
#include "bridges/written_trace.h"
#include "machine/machine.h"

namespace morvane::bridges {

/// A program's machine on a trace whose link has handle 7 and has been flushed.
class ReplayDesk : public ::testing::Test {
 protected:
  test::TestDesk desk;
  std::string path = desk.Folder / "run.trace";
  std::unique_ptr<ReplayBridge> bridge;
  std::unique_ptr<machine::Machine> machine;

  void Play(const WrittenTrace& trace) {
    std::string text = trace.Text();
    PlayText(text.insert(text.find("\n0.") + 1, WrittenTrace::FlushText()));
    machine->Link.FlushLink();
  }
  void PlayText(const std::string& text) {
    test::WriteInPlace(path, text);  // the last bridge may read it
    TraceReader reader;
    ASSERT_EQ(reader.Open(path), std::nullopt);
    bridge = std::make_unique<ReplayBridge>(std::move(reader), desk.Clock);
    machine =
        std::make_unique<machine::Machine>(desk.Random, *bridge, machine::MachineKind::kReplayed);
    machine->Link.UsbHandle = 7;
  }
  [[nodiscard]] const std::string& Trouble() const { return bridge->Play().Trouble(); }
  /// Behind that flush.
  [[nodiscard]] std::uint64_t Played() const { return bridge->Play().Trace().Played() - 1; }
  /// The state that a poll is answered with.
  [[nodiscard]] int Polled(std::uint8_t flags = 0) {
    const auto reply = machine->Exchange(wire::StatusCommand{flags});
    return reply ? reply->State : -1;
  }
};

}  // namespace morvane::bridges
