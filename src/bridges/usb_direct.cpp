#include "bridges/usb_direct.h"

#include <algorithm>
#include <utility>

#include "bridges/bridge_chip.h"
#include "bridges/serial_holder.h"
#include "bridges/usb_words.h"

namespace morvane::bridges {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

constexpr UsbXpress::Handle kHandle = 1;

// A library and a driver of the age that asks for no update.
constexpr std::uint32_t kVersionHigh = 0x00030001;
constexpr std::uint32_t kVersionLow = 0;

/// As many packets lie on the way at most when a line does not babble.
constexpr int kMostOnTheWay = 16;

constexpr unsigned kShortestMs = 1;

/// libusb takes no time as for ever.
unsigned AtLeastOne(milliseconds time) {
  return std::max(static_cast<unsigned>(time.count()), kShortestMs);
}

/// Of a read: more may come.
bool MayGoOn(UsbFault fault) { return fault == UsbFault::kNone || fault == UsbFault::kTimedOut; }

class Deadline {
 public:
  explicit Deadline(milliseconds time) : end_(steady_clock::now() + time) {}
  [[nodiscard]] bool IsOver() const { return steady_clock::now() >= end_; }
  /// What is left, for libusb.
  [[nodiscard]] unsigned LeftMs() const {
    const auto left = std::chrono::ceil<milliseconds>(end_ - steady_clock::now());
    return AtLeastOne(std::max(left, milliseconds(0)));
  }

 private:
  steady_clock::time_point end_;
};

}  // namespace

UsbDirect::~UsbDirect() {
  if (opened_) UsbDirect::Close(kHandle);
}

bool UsbDirect::Opened(Handle handle) const { return opened_ && handle == kHandle; }

bool UsbDirect::Usable(Handle handle) const { return Opened(handle) && connection_ != nullptr; }

UsbFault UsbDirect::Noted(UsbFault fault) {
  if (fault == UsbFault::kGone) connection_.reset();
  return fault;
}

UsbFault UsbDirect::Tell(const ControlRequest& request) {
  return Noted(connection_->Tell(request));
}

UsbXpress::Status UsbDirect::Refuse(Status status, std::string advice) {
  advice_ = std::move(advice);
  return status;
}

UsbXpress::Status UsbDirect::RefuseFor(UsbFault fault, const UsbFound& device) {
  switch (fault) {
    case UsbFault::kNoRights:
      return Refuse(kDeviceIoFailed, usb_words::NoRights());
    case UsbFault::kHeld:
      return Refuse(kDeviceIoFailed, usb_words::Held(device, AllBut(device)));
    case UsbFault::kGone:
      return Refuse(kDeviceNotFound, usb_words::Gone());
    default:
      return Refuse(kDeviceIoFailed, usb_words::Silent());
  }
}

std::vector<UsbFound> UsbDirect::AllBut(const UsbFound& device) const {
  std::vector<UsbFound> others;
  std::ranges::copy_if(attached_, std::back_inserter(others),
                       [&](const UsbFound& other) { return other.Device != device.Device; });
  return others;
}

UsbXpress::Status UsbDirect::GetDllVersion(std::uint32_t& high, std::uint32_t& low) {
  high = kVersionHigh;
  low = kVersionLow;
  return UsbStarts() ? kSuccess : kDriverMissing;
}

UsbXpress::Status UsbDirect::GetDriverVersion(std::uint32_t& high, std::uint32_t& low) {
  return GetDllVersion(high, low);
}

UsbXpress::Status UsbDirect::GetNumDevices(std::uint32_t& count) {
  advice_.clear();
  count = 0;
  auto attached = FindUsb(which_);
  if (!attached) return kDriverMissing;
  attached_ = std::move(*attached);
  found_.clear();
  std::ranges::copy_if(attached_, std::back_inserter(found_), [this](const UsbFound& device) {
    return which_.Serial.empty() || device.Serial == which_.Serial;
  });
  count = static_cast<std::uint32_t>(found_.size());
  return count > 0 ? kSuccess : RefuseAll();
}

UsbXpress::Status UsbDirect::RefuseAll() {
  if (attached_.empty()) return Refuse(kDeviceNotFound, usb_words::None(which_));
  // One of those that were not to be asked may be the one.
  if (std::ranges::any_of(attached_, &UsbFound::NoRights)) {
    return Refuse(kDeviceIoFailed, usb_words::NoRights());
  }
  return Refuse(kDeviceNotFound, usb_words::NotThatOne(which_.Serial, attached_));
}

UsbXpress::Status UsbDirect::GetProductString(std::uint32_t index, ProductString& text,
                                              std::uint32_t option) {
  advice_.clear();
  if (index >= found_.size()) return kDeviceNotFound;
  if (option != kSerialString) return kInvalidParameter;
  const UsbFound& device = found_[index];
  if (device.NoRights) return RefuseFor(UsbFault::kNoRights, device);
  text.fill('\0');
  std::copy_n(device.Serial.begin(), std::min(device.Serial.size(), text.size() - 1), text.begin());
  return kSuccess;
}

UsbXpress::Status UsbDirect::Open(std::uint32_t index, Handle& handle) {
  if (opened_) return kInvalidParameter;
  advice_.clear();
  if (index >= found_.size()) return Refuse(kDeviceNotFound, usb_words::None(which_));
  const Status status = Connect(found_[index]);
  if (status != kSuccess) return status;
  opened_ = true;
  handle = kHandle;
  return kSuccess;
}

UsbXpress::Status UsbDirect::Connect(const UsbFound& device) {
  if (const auto path = SerialDeviceInUse(device.Place)) {
    return Refuse(kDeviceIoFailed, usb_words::HeldAsSerial(*path));
  }
  UsbFault fault = UsbFault::kNone;
  connection_ = UsbConnection::Make(device, fault);
  if (connection_) fault = Tell(chip::Enable(true));
  if (fault != UsbFault::kNone) {
    connection_.reset();
    return RefuseFor(fault, device);
  }
  const auto part = connection_->Ask(chip::PartNumber());
  hasLatch_ = !part || *part > chip::kLastWithoutLatch;
  heldFrom_ = heldTo_ = 0;
  const auto others = AllBut(device);
  if (!others.empty() && which_.Serial.empty()) advice_ = usb_words::Several(device, others);
  return kSuccess;
}

UsbXpress::Status UsbDirect::SetTimeouts(std::uint32_t readMs, std::uint32_t writeMs) {
  readTime_ = milliseconds(readMs);
  writeTime_ = milliseconds(writeMs);
  return kSuccess;
}

UsbXpress::Status UsbDirect::Of(UsbFault fault) const {
  if (!connection_) return kInvalidHandle;
  if (fault == UsbFault::kNone) return kSuccess;
  return fault == UsbFault::kStalled ? kInvalidParameter : kDeviceIoFailed;
}

UsbXpress::Status UsbDirect::SetBaudRate(Handle handle, std::uint32_t rate) {
  if (!Usable(handle)) return kInvalidHandle;
  if (rate == 0) return kInvalidParameter;
  UsbFault fault = Tell(chip::BaudRate(rate));
  // The oldest chips know the divisor only.
  if (fault == UsbFault::kStalled && chip::HasDivisor(rate)) fault = Tell(chip::BaudDivisor(rate));
  return Of(fault);
}

UsbXpress::Status UsbDirect::SetLineControl(Handle handle, std::uint16_t control) {
  if (!Usable(handle)) return kInvalidHandle;
  if (control != kEightDataBitsNoParity) return kInvalidParameter;
  return Of(Tell(chip::LineControl(control)));
}

UsbXpress::Status UsbDirect::FlushBuffers(Handle handle, std::uint8_t transmit,
                                          std::uint8_t receive) {
  if (!Usable(handle)) return kInvalidHandle;
  if (transmit == 0 && receive == 0) return kSuccess;
  const UsbFault fault = Tell(chip::Purge(transmit != 0, receive != 0));
  if (receive != 0) Drain();
  return Of(fault);
}

// A packet that has left the chip's queue is not purged, and would shift the next reply.
void UsbDirect::Drain() {
  int packets = 0;
  while (connection_ && packets++ < kMostOnTheWay) {
    if (Fetch(kShortestMs) != UsbFault::kNone) break;
  }
  heldFrom_ = heldTo_ = 0;
}

UsbXpress::Status UsbDirect::Write(Handle handle, std::span<const std::uint8_t> bytes,
                                   std::uint32_t& written) {
  written = 0;
  if (!Opened(handle)) return kInvalidHandle;
  if (!connection_) return kWriteError;
  if (bytes.empty()) return kSuccess;
  const auto moved = connection_->Out(bytes, AtLeastOne(writeTime_));
  written = static_cast<std::uint32_t>(moved.Count);
  if (written == bytes.size()) return kSuccess;
  if (moved.Fault == UsbFault::kStalled) connection_->RestartOut();
  return Noted(moved.Fault) == UsbFault::kTimedOut ? kWriteTimedOut : kWriteError;
}

std::size_t UsbDirect::TakeHeld(std::span<std::uint8_t> bytes) {
  const std::size_t count = std::min(bytes.size(), heldTo_ - heldFrom_);
  std::copy_n(held_.begin() + static_cast<std::ptrdiff_t>(heldFrom_), count, bytes.begin());
  heldFrom_ += count;
  return count;
}

UsbFault UsbDirect::Fetch(unsigned ms) {
  const auto moved = connection_->In(held_, ms);
  heldFrom_ = 0;
  heldTo_ = moved.Count;
  return Noted(moved.Fault);
}

UsbXpress::Status UsbDirect::Read(Handle handle, std::span<std::uint8_t> bytes,
                                  std::uint32_t& read) {
  read = 0;
  if (!Opened(handle)) return kInvalidHandle;
  const Deadline deadline(readTime_);
  bool restarted = false;
  std::size_t count = TakeHeld(bytes);
  UsbFault fault = connection_ ? UsbFault::kNone : UsbFault::kGone;
  while (count < bytes.size() && connection_) {
    fault = Fetch(deadline.LeftMs());
    count += TakeHeld(bytes.subspan(count));
    if (fault == UsbFault::kStalled && !std::exchange(restarted, true)) {
      connection_->RestartIn();
      fault = UsbFault::kNone;
    }
    if (!MayGoOn(fault) || deadline.IsOver()) break;
  }
  read = static_cast<std::uint32_t>(count);
  if (count == bytes.size()) return kSuccess;
  return MayGoOn(fault) ? kReadTimedOut : kReadError;
}

UsbXpress::Status UsbDirect::WriteLatch(Handle handle, std::uint8_t mask, std::uint8_t value) {
  if (!Usable(handle)) return kInvalidHandle;
  if (!hasLatch_) return kFunctionNotSupported;
  return Of(Tell(chip::WriteLatch(mask, value)));
}

UsbXpress::Status UsbDirect::Close(Handle handle) {
  if (!Opened(handle)) return kInvalidHandle;
  if (connection_) Tell(chip::Enable(false));
  connection_.reset();
  heldFrom_ = heldTo_ = 0;
  opened_ = false;
  return kSuccess;
}

}  // namespace morvane::bridges
