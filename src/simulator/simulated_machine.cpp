#include "simulator/simulated_machine.h"

#include <algorithm>
#include <array>
#include <utility>

namespace morvane::simulator {
namespace {

using std::chrono::milliseconds;

constexpr UsbXpress::Handle kHandle = 1;
constexpr std::uint32_t kLibraryVersion = 3U << 16U | 1U;
constexpr std::uint32_t kDriverVersion = 3U << 16U | 3U;
constexpr std::uint8_t kLatchLine = 1;

}  // namespace

SimulatedMachine::SimulatedMachine(const Options& options, Clock& clock)
    : WiredMachine(options), options_(options), clock_(clock) {}

UsbXpress::Status SimulatedMachine::GetDllVersion(std::uint32_t& high, std::uint32_t& low) {
  high = kLibraryVersion;
  low = 0;
  return kSuccess;
}

UsbXpress::Status SimulatedMachine::GetDriverVersion(std::uint32_t& high, std::uint32_t& low) {
  high = kDriverVersion;
  low = 0;
  return kSuccess;
}

UsbXpress::Status SimulatedMachine::GetNumDevices(std::uint32_t& count) {
  count = 1;
  return kSuccess;
}

// A machine's serial string is four digits and a letter.
UsbXpress::Status SimulatedMachine::GetProductString(std::uint32_t index, ProductString& text,
                                                     std::uint32_t option) {
  if (index != 0) return kDeviceNotFound;
  if (option != kSerialString) return kInvalidParameter;
  text = {};
  unsigned rest = options_.Serial;
  for (std::size_t i = 4; i > 0; --i, rest /= 10) text[i - 1] = static_cast<char>('0' + rest % 10);
  text[4] = 'S';
  return kSuccess;
}

UsbXpress::Status SimulatedMachine::Open(std::uint32_t index, Handle& handle) {
  if (open_) return kInvalidParameter;
  if (index != 0) return kDeviceNotFound;
  open_ = true;
  handle = kHandle;
  return kSuccess;
}

UsbXpress::Status SimulatedMachine::SetTimeouts(std::uint32_t readMs, std::uint32_t) {
  readTimeout_ = milliseconds(readMs);
  return kSuccess;
}

UsbXpress::Status SimulatedMachine::SetBaudRate(Handle handle, std::uint32_t rate) {
  if (!IsOpen(handle)) return kInvalidHandle;
  return rate == kBaudRate ? kSuccess : kInvalidParameter;
}

UsbXpress::Status SimulatedMachine::SetLineControl(Handle handle, std::uint16_t control) {
  if (!IsOpen(handle)) return kInvalidHandle;
  return control == kEightDataBitsNoParity ? kSuccess : kInvalidParameter;
}

UsbXpress::Status SimulatedMachine::FlushBuffers(Handle handle, std::uint8_t,
                                                 std::uint8_t receive) {
  if (!IsOpen(handle)) return kInvalidHandle;
  if (receive != 0) {
    received_.Clear();
    onItsWay_ = Time(0);
  }
  return kSuccess;
}

UsbXpress::Status SimulatedMachine::Write(Handle handle, std::span<const std::uint8_t> bytes,
                                          std::uint32_t& written) {
  written = 0;
  if (!IsOpen(handle)) return kInvalidHandle;
  written = static_cast<std::uint32_t>(bytes.size());
  DeliverLate();
  for (const std::uint8_t byte : bytes) {
    if (const auto saying = Hear(byte, clock_.Elapsed())) Carry(*saying);
  }
  if (options_.Speed > 0.0) onItsWay_ += WireTime(bytes.size());
  return kSuccess;
}

void SimulatedMachine::Carry(const Saying& saying) {
  if (saying.How == LinkFault::Kind::LateReply) {
    std::copy(saying.Wire.begin(), saying.Wire.end(), late_.begin());
    lateCount_ = saying.Wire.size();
    lateMissed_ = false;
    return;
  }
  if (saying.How == LinkFault::Kind::ShiftReply) {
    received_.Push(std::array<std::uint8_t, 1>{0x55});
  }
  received_.Push(saying.Wire);
  received_.Push(saying.Unasked);
  onItsWay_ += ThinkingTime();
}

void SimulatedMachine::DeliverLate() {
  received_.Push(std::span(late_).first(std::exchange(lateCount_, 0)));
}

UsbXpress::Status SimulatedMachine::Read(Handle handle, std::span<std::uint8_t> bytes,
                                         std::uint32_t& read) {
  read = 0;
  if (!IsOpen(handle)) return kInvalidHandle;
  if (lateMissed_) DeliverLate();
  const bool lacking = received_.Count() < bytes.size();
  read = static_cast<std::uint32_t>(received_.Take(bytes));
  if (lacking) {
    onItsWay_ = Time(0);
    lateMissed_ = lateCount_ != 0;
    clock_.Spend(readTimeout_);
    return kReadTimedOut;
  }
  const Time wireTime = options_.Speed > 0.0 ? WireTime(bytes.size()) : Time(0);
  const Time wait = std::exchange(onItsWay_, Time(0)) + wireTime;
  if (wait.count() > 0) clock_.Spend(wait);
  return kSuccess;
}

UsbXpress::Status SimulatedMachine::WriteLatch(Handle handle, std::uint8_t mask,
                                               std::uint8_t value) {
  if (!IsOpen(handle)) return kInvalidHandle;
  if ((mask & kLatchLine) == 0) return kSuccess;
  TakeLatch((value & kLatchLine) != 0);
  return kSuccess;
}

UsbXpress::Status SimulatedMachine::Close(Handle handle) {
  if (!IsOpen(handle)) return kInvalidHandle;
  open_ = false;
  received_.Clear();
  lateCount_ = 0;
  lateMissed_ = false;
  ForgetHalfHeard();
  onItsWay_ = Time{0};
  return kSuccess;
}

bool SimulatedMachine::IsOpen(Handle handle) const { return open_ && handle == kHandle; }

}  // namespace morvane::simulator
