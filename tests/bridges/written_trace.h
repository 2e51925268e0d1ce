#pragma once

#include <chrono>
#include <string>
#include <vector>

#include "bridges/trace/trace_line.h"
#include "support/fakes.h"
#include "support/scripted_bridge.h"

namespace morvane::bridges {

using std::chrono::microseconds;

/// A trace that is written by hand, a line each 10 ms that takes one.
class WrittenTrace {
 public:
  explicit WrittenTrace(const TraceHead& head = {"2026-03-03 15:04:05.123", "usb", 1, false})
      : text_(TextOf(head)) {}

  WrittenTrace& Add(Operation what, const std::array<std::uint32_t, 3>& numbers = {},
                    std::vector<std::uint8_t> bytes = {},
                    UsbXpress::Status result = UsbXpress::kSuccess) {
    text_ += TextOf(TraceLine{At, microseconds(1000), what, result, numbers, std::move(bytes)}, "");
    At += microseconds(10000);
    return *this;
  }
  /// The link is opened with handle 7, as `OpenLink` does.
  WrittenTrace& Opening() {
    Add(Operation::kGetDllVersion, {0x30001, 0}).Add(Operation::kGetDriverVersion, {0x30003, 0});
    Add(Operation::kGetNumDevices, {1});
    Add(Operation::kGetProductString, {0, 0}, {'4', '7', '1', '1', 'S'});
    Add(Operation::kOpen, {0, 7}).Add(Operation::kSetTimeouts, {200, 200});
    Add(Operation::kSetBaudRate, {7, 115200}).Add(Operation::kSetLineControl, {7, 0x800});
    return Flush();
  }
  WrittenTrace& Flush() { return Add(Operation::kFlushBuffers, {7, 1, 1}); }
  /// Plain frames.
  WrittenTrace& Send(const test::Bytes& command) {
    const auto size = static_cast<std::uint32_t>(command.size());
    return Add(Operation::kWrite, {7, size}, test::OnTheWire(command, 23));
  }
  /// The head of a long one, and what is behind it.
  WrittenTrace& Reply(const test::Bytes& reply) {
    const test::Bytes wire = test::OnTheWire(reply, 21);
    Add(Operation::kRead, {7, 8}, {wire.begin(), wire.begin() + 8});
    if (wire.size() > 8) Add(Operation::kRead, {7, 128}, {wire.begin() + 8, wire.end()});
    return *this;
  }
  WrittenTrace& Exchange(const test::Bytes& command, const test::Bytes& reply) {
    return Send(command).Reply(reply);
  }
  /// An idle machine is polled with these flags; byte 6 tells of pedal (8) and board (16).
  WrittenTrace& Poll(std::uint8_t flags = 0, std::uint8_t events = 0) {
    return Status(flags, 0, events);
  }
  WrittenTrace& BusyPoll(std::uint8_t flags = 0) { return Status(flags, 255, 0); }
  WrittenTrace& Silence() {
    return Add(Operation::kRead, {7, 8}, {}, UsbXpress::kReadTimedOut).Flush();
  }
  WrittenTrace& Leaving() {
    return Add(Operation::kWriteLatch, {7, 1, 0}).Add(Operation::kClose, {7});
  }
  /// What comes now came a second later.
  WrittenTrace& Later() {
    At += microseconds(1000000);
    return *this;
  }
  WrittenTrace& Line(const std::string& text) {
    text_ += text + "\n";
    return *this;
  }
  WrittenTrace& End() { return Line(std::string(kTraceEnd)); }

  [[nodiscard]] const std::string& Text() const { return text_; }
  /// A line that takes no time.
  [[nodiscard]] static std::string FlushText() {
    TraceLine flush;
    flush.What = Operation::kFlushBuffers;
    flush.Numbers = {7, 1, 1};
    return TextOf(flush, "");
  }

  microseconds At{0};

 private:
  WrittenTrace& Status(std::uint8_t flags, std::uint8_t state, std::uint8_t events) {
    return Exchange(test::Short({0x19, flags, ++filler_}),
                    test::Short({0x19, state, 0, 0, 0, 0, events}));
  }

  std::string text_;
  std::uint8_t filler_ = 0;
};

}  // namespace morvane::bridges
