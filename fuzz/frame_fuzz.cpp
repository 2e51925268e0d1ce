// The bytes of a file as they might come down the wire: to a machine, which must neither fall over
// nor answer with anything but whole good frames, and to the decoder.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>

#include "simulator/simulated_machine.h"
#include "support.h"
#include "wire/frame.h"

namespace {

using namespace morvane;

class FuzzClock final : public Clock {
 public:
  [[nodiscard]] LocalTime Now() const override { return {2026, 1, 1, 0, 0, 0, 0}; }
  [[nodiscard]] std::chrono::microseconds Elapsed() const override { return elapsed_; }
  void Spend(std::chrono::microseconds time) override { elapsed_ += time; }

 private:
  std::chrono::microseconds elapsed_{0};
};

/// Every reply, up to the last one, is a good frame in each of its bytes.
void CheckReplies(simulator::SimulatedMachine& machine, UsbXpress::Handle handle) {
  std::uint32_t read = 0;
  for (;;) {
    wire::Frame frame{};
    machine.Read(handle, std::span(frame).first(wire::kShortFrame), read);
    if (read == 0) return;
    Require(read == wire::kShortFrame);
    const std::size_t size = wire::SizeOnTheWire(frame);
    if (size == wire::kLongFrame) {
      machine.Read(handle, wire::Payload(frame), read);
      Require(read == wire::kLongFrame - wire::kShortFrame);
    }
    Require(wire::Unscramble(std::span(frame).first(size), wire::kStepFromMachine));
  }
}

/// As they are, 136 at a time, with a pause between.
void FeedWire(std::span<const std::uint8_t> bytes) {
  FuzzClock clock;
  simulator::Options options;
  options.Speed = 1000.0;
  options.Seed = 1;
  simulator::SimulatedMachine machine(options, clock);
  UsbXpress::Handle handle = 0;
  machine.Open(0, handle);
  machine.SetTimeouts(25, 25);
  while (!bytes.empty()) {
    const std::size_t count = std::min(bytes.size(), wire::kLongFrame);
    std::uint32_t written = 0;
    machine.Write(handle, bytes.first(count), written);
    bytes = bytes.subspan(count);
    CheckReplies(machine, handle);
  }
}

/// As plain frames one after the other, so that the check does not keep the inside out of reach.
void FeedPlain(std::span<const std::uint8_t> bytes) {
  FuzzClock clock;
  simulator::Options options;
  options.Speed = 0.0;
  options.Seed = 1;
  simulator::SimulatedMachine machine(options, clock);
  UsbXpress::Handle handle = 0;
  machine.Open(0, handle);
  machine.SetTimeouts(25, 25);
  while (!bytes.empty()) {
    wire::Frame frame{};
    const std::size_t size = wire::FrameSize(bytes[0]);
    const std::size_t count = std::min(bytes.size(), size);
    std::copy_n(bytes.begin(), count, frame.begin());
    bytes = bytes.subspan(count);
    wire::Scramble(std::span(frame).first(size), wire::kStepToMachine);
    std::uint32_t written = 0;
    machine.Write(handle, std::span(frame).first(size), written);
    CheckReplies(machine, handle);
  }
  machine.TakeLatch(true);
  machine.TakeLatch(false);  // what was loaded boots, if it does
  std::size_t cards = 0;
  for (const auto& pile : machine.CardsByPocket()) cards += pile.size();
  Require(cards <= simulator::Pile::kCapacity);
}

void Decode(std::span<const std::uint8_t> bytes) {
  if (bytes.size() < wire::kShortFrame) return;
  wire::Frame frame{};
  const std::size_t size = bytes.size() < wire::kLongFrame ? wire::kShortFrame : wire::kLongFrame;
  std::copy_n(bytes.begin(), size, frame.begin());
  const std::span<std::uint8_t> wire = std::span(frame).first(size);
  if (!wire::Unscramble(wire, wire::kStepFromMachine)) return;
  wire::Scramble(wire, wire::kStepFromMachine);
  Require(std::equal(wire.begin(), wire.end(), bytes.begin()));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::span<const std::uint8_t> bytes(data, size);
  FeedWire(bytes);
  FeedPlain(bytes);
  Decode(bytes);
  return 0;
}
