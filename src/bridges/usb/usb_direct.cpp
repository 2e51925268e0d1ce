#include "bridges/usb/usb_direct.h"

#include <algorithm>
#include <thread>

#include "bridges/usb/bridge_chip.h"
#include "bridges/usb/serial_holder.h"
#include "bridges/usb/usb_words.h"
#include "platform/machine_serial.h"

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

/// The bus asks the chip once in its frame of 1 ms: in less than two, what is there may not come.
constexpr unsigned kShortestMs = 2;

/// libusb takes no time as for ever.
unsigned AtLeastShortest(milliseconds time) {
  return std::max(static_cast<unsigned>(time.count()), kShortestMs);
}

/// In a row: more are no chance. A device that is being unplugged has some before it is gone.
constexpr int kMostDisturbances = 5;
constexpr milliseconds kBehindDisturbance{3};

/// What one read goes on behind: a stall, and disturbances that are not too many in a row.
class ReadTroubles {
 public:
  [[nodiscard]] bool Bears(UsbFault fault) {
    if (fault == UsbFault::kStalled) return ++stalls_ <= 1;
    disturbances_ = fault == UsbFault::kDisturbed ? disturbances_ + 1 : 0;
    return disturbances_ > 0 && disturbances_ <= kMostDisturbances;
  }

 private:
  int stalls_ = 0;
  int disturbances_ = 0;
};

/// Of a read: more may come.
bool MayGoOn(UsbFault fault) { return fault == UsbFault::kNone || fault == UsbFault::kTimedOut; }

class Deadline {
 public:
  explicit Deadline(milliseconds time) : end_(steady_clock::now() + time) {}
  [[nodiscard]] bool IsOver() const { return steady_clock::now() >= end_; }
  /// What is left, for libusb.
  [[nodiscard]] unsigned LeftMs() const {
    const auto left = std::chrono::ceil<milliseconds>(end_ - steady_clock::now());
    return AtLeastShortest(std::max(left, milliseconds(0)));
  }

 private:
  steady_clock::time_point end_;
};

std::vector<UsbFound> AllBut(const UsbFound& device, const std::vector<UsbFound>& all) {
  std::vector<UsbFound> others;
  std::ranges::copy_if(all, std::back_inserter(others),
                       [&](const UsbFound& other) { return other.Device != device.Device; });
  return others;
}

UsbXpress::ProductString TextOf(const UsbFound& device) {
  UsbXpress::ProductString text{};
  std::copy_n(device.Serial.begin(), std::min(device.Serial.size(), text.size() - 1), text.begin());
  return text;
}

bool IsMachine(const UsbFound& device) { return IsMachineSerial(TextOf(device)); }

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
      return Refuse(kDeviceIoFailed, usb_words::NoRights(which_));
    case UsbFault::kHeld:
      return Refuse(kDeviceIoFailed, usb_words::Held(which_, device, AllBut(device, attached_)));
    case UsbFault::kGone:
      return Refuse(kDeviceNotFound, usb_words::Gone());
    default:
      return Refuse(kDeviceIoFailed, usb_words::Silent());
  }
}

// Beside a machine, another device with the same chip is none to choose from.
std::string UsbDirect::Welcome(const UsbFound& device) const {
  const auto others = AllBut(device, found_);
  const bool told = std::ranges::any_of(others, IsMachine) || !IsMachine(device);
  return told && !others.empty() ? usb_words::Several(which_, device, others) : "";
}

UsbXpress::Status UsbDirect::GetDllVersion(std::uint32_t& high, std::uint32_t& low) {
  high = kVersionHigh;
  low = kVersionLow;
  advice_.clear();
  return UsbStarts() ? kSuccess : Refuse(kDriverMissing, usb_words::NoBus());
}

UsbXpress::Status UsbDirect::GetDriverVersion(std::uint32_t& high, std::uint32_t& low) {
  return GetDllVersion(high, low);
}

UsbXpress::Status UsbDirect::GetNumDevices(std::uint32_t& count) {
  advice_.clear();
  count = 0;
  auto attached = FindUsb(which_);
  if (!attached) return Refuse(kDriverMissing, usb_words::NoBus());
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
  // One that did not tell its serial string may be the one; rights can be helped.
  auto silent = std::ranges::find(attached_, UsbFault::kNoRights, &UsbFound::Fault);
  if (silent == attached_.end()) {
    silent = std::ranges::find_if(
        attached_, [](const UsbFound& device) { return device.Fault != UsbFault::kNone; });
  }
  if (silent != attached_.end()) return RefuseFor(silent->Fault, *silent);
  return Refuse(kDeviceNotFound, usb_words::NotThatOne(which_.Serial, attached_));
}

UsbXpress::Status UsbDirect::GetProductString(std::uint32_t index, ProductString& text,
                                              std::uint32_t option) {
  advice_.clear();
  if (index >= found_.size()) return kDeviceNotFound;
  if (option != kSerialString) return kInvalidParameter;
  const UsbFound& device = found_[index];
  if (device.Fault != UsbFault::kNone) return RefuseFor(device.Fault, device);
  text = TextOf(device);
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
  if (const auto use = SerialUseAt(device.Place)) {
    return Refuse(kDeviceIoFailed,
                  usb_words::HeldAsSerial(which_, device, *use, AllBut(device, attached_)));
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
  advice_ = Welcome(device);
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

UsbXpress::Status UsbDirect::OfSetting(UsbFault fault) {
  const Status status = Of(fault);
  if (status == kSuccess) return status;
  return Refuse(status, connection_ ? usb_words::Silent() : usb_words::Gone());
}

UsbXpress::Status UsbDirect::SetBaudRate(Handle handle, std::uint32_t rate) {
  if (!Usable(handle)) return kInvalidHandle;
  if (rate == 0) return kInvalidParameter;
  UsbFault fault = Tell(chip::BaudRate(rate));
  // The oldest chips know the divisor only.
  if (fault == UsbFault::kStalled && chip::HasDivisor(rate)) fault = Tell(chip::BaudDivisor(rate));
  return OfSetting(fault);
}

UsbXpress::Status UsbDirect::SetLineControl(Handle handle, std::uint16_t control) {
  if (!Usable(handle)) return kInvalidHandle;
  if (control != kEightDataBitsNoParity) return kInvalidParameter;
  return OfSetting(Tell(chip::LineControl(control)));
}

UsbXpress::Status UsbDirect::FlushBuffers(Handle handle, std::uint8_t transmit,
                                          std::uint8_t receive) {
  if (!Usable(handle)) return kInvalidHandle;
  if (transmit == 0 && receive == 0) return kSuccess;
  const UsbFault fault = Tell(chip::Purge(transmit != 0, receive != 0));
  if (receive != 0) Drain();
  return OfSetting(fault);
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
  const auto moved = connection_->Out(bytes, AtLeastShortest(writeTime_));
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

UsbFault UsbDirect::Mended(UsbFault fault) {
  if (fault == UsbFault::kStalled) connection_->RestartIn();
  // Asked again at once, a disturbed bus answers the same.
  if (fault == UsbFault::kDisturbed) std::this_thread::sleep_for(kBehindDisturbance);
  return UsbFault::kNone;
}

UsbXpress::Status UsbDirect::Read(Handle handle, std::span<std::uint8_t> bytes,
                                  std::uint32_t& read) {
  read = 0;
  if (!Opened(handle)) return kInvalidHandle;
  const Deadline deadline(readTime_);
  ReadTroubles troubles;
  std::size_t count = TakeHeld(bytes);
  UsbFault fault = connection_ ? UsbFault::kNone : UsbFault::kGone;
  while (count < bytes.size() && connection_) {
    fault = Fetch(deadline.LeftMs());
    count += TakeHeld(bytes.subspan(count));
    if (troubles.Bears(fault)) fault = Mended(fault);
    if (!MayGoOn(fault) || deadline.IsOver()) break;
  }
  read = static_cast<std::uint32_t>(count);
  if (count == bytes.size()) return kSuccess;
  return MayGoOn(fault) ? kReadTimedOut : kReadError;
}

UsbXpress::Status UsbDirect::WriteLatch(Handle handle, std::uint8_t mask, std::uint8_t value) {
  if (!Usable(handle)) return kInvalidHandle;
  if (!hasLatch_) return kFunctionNotSupported;
  const UsbFault fault = Tell(chip::WriteLatch(mask, value));
  if (fault == UsbFault::kNone) {
    latch_ = static_cast<std::uint8_t>((latch_ & ~mask) | (value & mask));
  }
  return Of(fault);
}

// As the control line of a serial device falls by itself.
void UsbDirect::LowerLatch() {
  if (connection_ && latch_ != 0) Tell(chip::WriteLatch(latch_, 0));
  latch_ = 0;
}

UsbXpress::Status UsbDirect::Close(Handle handle) {
  if (!Opened(handle)) return kInvalidHandle;
  LowerLatch();
  if (connection_) Tell(chip::Enable(false));
  connection_.reset();
  heldFrom_ = heldTo_ = 0;
  opened_ = false;
  return kSuccess;
}

}  // namespace morvane::bridges
