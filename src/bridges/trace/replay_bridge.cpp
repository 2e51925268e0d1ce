#include "bridges/trace/replay_bridge.h"

#include <algorithm>
#include <chrono>

namespace morvane::bridges {
namespace {

/// With an older driver the operator would be advised to take a newer one.
constexpr std::uint32_t kAsksForNoUpdate = 0x00030001;

/// A bridge may have hung, and the program of the trace have been held. Nobody waits for it again.
constexpr std::chrono::microseconds kLongest = std::chrono::seconds(10);

constexpr std::chrono::microseconds kWorthASleep{500};

std::uint32_t NumberOf(UsbXpress::Handle handle) { return static_cast<std::uint32_t>(handle); }

}  // namespace

std::optional<TraceLine> ReplayBridge::Answer(Operation what,
                                              const std::array<std::uint32_t, 3>& numbers,
                                              std::span<const std::uint8_t> bytes) {
  const auto start = clock_.Elapsed();
  TraceLine asked;
  asked.What = what;
  asked.Numbers = numbers;
  asked.Bytes.assign(bytes.begin(), bytes.end());
  auto line = playback_.Answer(asked);
  owed_ -= clock_.Elapsed() - start;
  if (line) Spend(std::min(line->Took, kLongest));
  return line;
}

/// A clock that sleeps oversleeps, by more than most operations take: it sleeps once that is worth
/// it, and less the next time.
void ReplayBridge::Spend(std::chrono::microseconds time) {
  owed_ += time;
  if (owed_ < kWorthASleep) return;
  const auto start = clock_.Elapsed();
  clock_.Spend(owed_);
  owed_ -= clock_.Elapsed() - start;
}

UsbXpress::Status ReplayBridge::Outcome(Operation what, const std::array<std::uint32_t, 3>& numbers,
                                        Status gone) {
  const auto line = Answer(what, numbers);
  return line ? line->Result : gone;
}

UsbXpress::Status ReplayBridge::Version(Operation what, std::uint32_t& high, std::uint32_t& low) {
  const auto line = Answer(what);
  high = line ? line->Numbers[0] : kAsksForNoUpdate;
  low = line ? line->Numbers[1] : 0;
  return line ? line->Result : kSuccess;
}

UsbXpress::Status ReplayBridge::GetDllVersion(std::uint32_t& high, std::uint32_t& low) {
  return Version(Operation::kGetDllVersion, high, low);
}

UsbXpress::Status ReplayBridge::GetDriverVersion(std::uint32_t& high, std::uint32_t& low) {
  return Version(Operation::kGetDriverVersion, high, low);
}

UsbXpress::Status ReplayBridge::GetNumDevices(std::uint32_t& count) {
  const auto line = Answer(Operation::kGetNumDevices);
  count = line ? line->Numbers[0] : 0;
  return line ? line->Result : kDeviceNotFound;
}

UsbXpress::Status ReplayBridge::GetProductString(std::uint32_t index, ProductString& text,
                                                 std::uint32_t option) {
  const auto line = Answer(Operation::kGetProductString, {index, option});
  if (!line) return kDeviceNotFound;
  text = {};
  std::copy_n(line->Bytes.begin(), std::min(line->Bytes.size(), text.size() - 1), text.begin());
  return line->Result;
}

UsbXpress::Status ReplayBridge::Open(std::uint32_t index, Handle& handle) {
  const auto line = Answer(Operation::kOpen, {index});
  if (!line) return kDeviceNotFound;
  handle = static_cast<Handle>(line->Numbers[1]);
  return line->Result;
}

UsbXpress::Status ReplayBridge::SetTimeouts(std::uint32_t readMs, std::uint32_t writeMs) {
  return Outcome(Operation::kSetTimeouts, {readMs, writeMs}, kSuccess);
}

UsbXpress::Status ReplayBridge::SetBaudRate(Handle handle, std::uint32_t rate) {
  return Outcome(Operation::kSetBaudRate, {NumberOf(handle), rate}, kInvalidHandle);
}

UsbXpress::Status ReplayBridge::SetLineControl(Handle handle, std::uint16_t control) {
  return Outcome(Operation::kSetLineControl, {NumberOf(handle), control}, kInvalidHandle);
}

UsbXpress::Status ReplayBridge::FlushBuffers(Handle handle, std::uint8_t transmit,
                                             std::uint8_t receive) {
  return Outcome(Operation::kFlushBuffers, {NumberOf(handle), transmit, receive}, kInvalidHandle);
}

UsbXpress::Status ReplayBridge::Write(Handle handle, std::span<const std::uint8_t> bytes,
                                      std::uint32_t& written) {
  const auto line = Answer(Operation::kWrite, {NumberOf(handle)}, bytes);
  written = line ? line->Numbers[1] : 0;
  return line ? line->Result : kInvalidHandle;
}

UsbXpress::Status ReplayBridge::Read(Handle handle, std::span<std::uint8_t> bytes,
                                     std::uint32_t& read) {
  read = 0;
  const auto asked = static_cast<std::uint32_t>(bytes.size());
  const auto line = Answer(Operation::kRead, {NumberOf(handle), asked});
  if (!line) return kInvalidHandle;
  read = static_cast<std::uint32_t>(std::min(line->Bytes.size(), bytes.size()));
  std::copy_n(line->Bytes.begin(), read, bytes.begin());
  return line->Result;
}

UsbXpress::Status ReplayBridge::WriteLatch(Handle handle, std::uint8_t mask, std::uint8_t value) {
  return Outcome(Operation::kWriteLatch, {NumberOf(handle), mask, value}, kInvalidHandle);
}

UsbXpress::Status ReplayBridge::Close(Handle handle) {
  return Outcome(Operation::kClose, {NumberOf(handle)}, kInvalidHandle);
}

}  // namespace morvane::bridges
