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
    machine::Frame frame{};
    machine.Read(handle, std::span(frame).first(machine::kShortFrame), read);
    if (read == 0) return;
    Require(read == machine::kShortFrame);
    const auto code = static_cast<std::uint8_t>(frame[0] ^ frame[machine::kCheckByte] ^ 0xFFU);
    const std::size_t size = machine::FrameSize(code);
    if (size == machine::kLongFrame) {
      machine.Read(handle, std::span(frame).subspan(machine::kPayload), read);
      Require(read == machine::kLongFrame - machine::kPayload);
    }
    Require(machine::Unscramble(std::span(frame).first(size), machine::kStepFromMachine));
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
    const std::size_t count = std::min(bytes.size(), machine::kLongFrame);
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
    machine::Frame frame{};
    const std::size_t size = machine::FrameSize(bytes[0]);
    const std::size_t count = std::min(bytes.size(), size);
    std::copy_n(bytes.begin(), count, frame.begin());
    bytes = bytes.subspan(count);
    machine::Scramble(std::span(frame).first(size), machine::kStepToMachine);
    std::uint32_t written = 0;
    machine.Write(handle, std::span(frame).first(size), written);
    CheckReplies(machine, handle);
  }
  std::size_t cards = 0;
  for (const auto& pile : machine.CardsByPocket()) cards += pile.size();
  Require(cards <= simulator::Pile::kCapacity);
}

void Decode(std::span<const std::uint8_t> bytes) {
  if (bytes.size() < machine::kShortFrame) return;
  machine::Frame frame{};
  const std::size_t size =
      bytes.size() < machine::kLongFrame ? machine::kShortFrame : machine::kLongFrame;
  std::copy_n(bytes.begin(), size, frame.begin());
  const std::span<std::uint8_t> wire = std::span(frame).first(size);
  if (!machine::Unscramble(wire, machine::kStepFromMachine)) return;
  machine::Scramble(wire, machine::kStepFromMachine);
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
