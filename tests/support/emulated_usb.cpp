#include "support/emulated_usb.h"

#include <gtest/gtest.h>
#include <linux/usbdevice_fs.h>
#include <sys/ioctl.h>
#include <umockdev.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstring>
#include <utility>

namespace morvane::test {
namespace {

struct Unreferenced {
  void operator()(UMockdevIoctlData* data) const { g_object_unref(data); }
};
/// Memory of the program that calls; what is changed in it goes there as the call ends.
using Memory = std::unique_ptr<UMockdevIoctlData, Unreferenced>;

Memory Pointed(UMockdevIoctlData* from, std::size_t offset, std::size_t size) {
  return Memory(umockdev_ioctl_data_resolve(from, offset, size, nullptr));
}

Memory Argument(UMockdevIoctlClient* client, std::size_t size) {
  return Pointed(umockdev_ioctl_client_get_arg(client), 0, size);
}

template <class Struct>
Struct& As(const Memory& memory) {
  return *reinterpret_cast<Struct*>(memory->data);
}

}  // namespace

/// One that a program has handed over.
struct EmulatedUsb::Transfer {
  Client Owner = nullptr;
  Memory Request;
  Memory Buffer;

  [[nodiscard]] usbdevfs_urb& Urb() const { return As<usbdevfs_urb>(Request); }
  [[nodiscard]] bool IsIn() const { return (Urb().endpoint & 0x80U) != 0; }
  [[nodiscard]] std::span<std::uint8_t> Bytes() const {
    return {Buffer->data, static_cast<std::size_t>(Urb().buffer_length)};
  }
};

EmulatedUsb::EmulatedUsb(UMockdevTestbed* testbed, int& lastAddress, UsbKind kind)
    : socket_(testbed, lastAddress, std::move(kind)),
      calls_(umockdev_ioctl_base_new()),
      chip_(socket_.Kind()),
      driver_(socket_.Kind().HasDriver) {
  g_signal_connect(calls_, "handle-ioctl", G_CALLBACK(OnCall), this);
  PlugIn();
}

EmulatedUsb::~EmulatedUsb() { g_object_unref(calls_); }

// ---- What a test does

void EmulatedUsb::Say(const Bytes& bytes) {
  const std::lock_guard lock(mutex_);
  chip_.Say(bytes);
  FillWaiting();
}

void EmulatedUsb::Pull() {
  const std::lock_guard lock(mutex_);
  Vanish();
}

void EmulatedUsb::PlugIn() {
  const std::lock_guard lock(mutex_);
  attached_ = true;
  driver_ = socket_.Kind().HasDriver;
  waiting_.clear();
  ended_.clear();
  chip_.PowerUp();
  socket_.PlugIn(calls_);
}

void EmulatedUsb::PullAt(int count, Pulled when) {
  const std::lock_guard lock(mutex_);
  pullAt_ = count;
  pulled_ = when;
}

void EmulatedUsb::PullAtRequest(std::uint8_t code) {
  const std::lock_guard lock(mutex_);
  pullAtRequest_ = code;
}

void EmulatedUsb::PullBehind(int packets) {
  const std::lock_guard lock(mutex_);
  pullBehind_ = packets;
}

void EmulatedUsb::HoldByOther(bool held) {
  const std::lock_guard lock(mutex_);
  heldByOther_ = held;
}

void EmulatedUsb::FailNext(int error, int count) {
  const std::lock_guard lock(mutex_);
  failures_.insert(failures_.end(), static_cast<std::size_t>(count), error);
}

void EmulatedUsb::StallOut(int count) {
  const std::lock_guard lock(mutex_);
  outStalls_ = count;
}

void EmulatedUsb::Unbind() {
  const std::lock_guard lock(mutex_);
  driver_ = false;
}

void EmulatedUsb::LikeAnOldSystem() {
  const std::lock_guard lock(mutex_);
  oldSystem_ = true;
}

// ---- What a test sees

bool EmulatedUsb::HasDriver() const {
  const std::lock_guard lock(mutex_);
  return driver_;
}

bool EmulatedUsb::IsClaimed() const {
  const std::lock_guard lock(mutex_);
  return owner_ != nullptr;
}

int EmulatedUsb::Askings() const {
  const std::lock_guard lock(mutex_);
  return askings_;
}

// ---- Programs

int EmulatedUsb::OnCall(UMockdevIoctlBase*, Client client, void* self) {
  auto& device = *static_cast<EmulatedUsb*>(self);
  const std::lock_guard lock(device.mutex_);
  const int result = device.Serve(client, umockdev_ioctl_client_get_request(client));
  umockdev_ioctl_client_complete(client, result < 0 ? -1 : result, result < 0 ? -result : 0);
  return TRUE;
}

int EmulatedUsb::Serve(Client client, unsigned long call) {
  if (call == USBDEVFS_REAPURBNDELAY) return Reap(client);
  if (!attached_) return -ENODEV;
  switch (call) {
    case USBDEVFS_GET_CAPABILITIES:
      As<std::uint32_t>(Argument(client, sizeof(std::uint32_t))) =
          USBDEVFS_CAP_ZERO_PACKET | USBDEVFS_CAP_NO_PACKET_SIZE_LIM |
          USBDEVFS_CAP_REAP_AFTER_DISCONNECT;
      return 0;
    case USBDEVFS_SUBMITURB:
      return Submit(client);
    case USBDEVFS_DISCARDURB:
      return Discard(client);
    default:
      return ServeInterface(client, call);
  }
}

int EmulatedUsb::ServeInterface(Client client, unsigned long call) {
  switch (call) {
    case USBDEVFS_GETDRIVER:
      return DriverName(client);
    case USBDEVFS_DISCONNECT_CLAIM:
      return oldSystem_ ? -ENOTTY : ClaimAlone(client);
    case USBDEVFS_IOCTL:
      return DriverWish(client);
    case USBDEVFS_CLAIMINTERFACE:
      return Claim(client);
    case USBDEVFS_RELEASEINTERFACE:
      return Release(client);
    case USBDEVFS_CLEAR_HALT:
      return 0;
    default:
      ADD_FAILURE() << "unknown call " << call;
      return -ENOTTY;
  }
}

int EmulatedUsb::ClaimAlone(Client client) {
  if (heldByOther_ || (owner_ != nullptr && owner_ != client)) return -EBUSY;
  driver_ = false;
  return Claim(client);
}

int EmulatedUsb::Claim(Client client) {
  if (heldByOther_ || driver_ || (owner_ != nullptr && owner_ != client)) return -EBUSY;
  owner_ = client;
  return 0;
}

int EmulatedUsb::Release(Client client) {
  if (owner_ != client) return -EINVAL;
  owner_ = nullptr;
  return 0;
}

int EmulatedUsb::DriverName(Client client) const {
  if (!driver_ && owner_ == nullptr) return -ENODATA;
  const Memory argument = Argument(client, sizeof(usbdevfs_getdriver));
  auto& name = As<usbdevfs_getdriver>(argument).driver;
  std::strncpy(name, driver_ ? "cp210x" : "usbfs", sizeof name);
  return 0;
}

int EmulatedUsb::DriverWish(Client client) {
  const Memory argument = Argument(client, sizeof(usbdevfs_ioctl));
  const auto wish = static_cast<unsigned>(As<usbdevfs_ioctl>(argument).ioctl_code);
  if (wish == USBDEVFS_DISCONNECT) return std::exchange(driver_, false) ? 0 : -ENODATA;
  if (wish != USBDEVFS_CONNECT) return -ENOTTY;
  if (driver_ || owner_ != nullptr) return -EBUSY;
  driver_ = socket_.Kind().HasDriver;
  return driver_ ? 1 : 0;
}

int EmulatedUsb::Submit(Client client) {
  auto transfer = std::make_unique<Transfer>();
  transfer->Owner = client;
  transfer->Request = Argument(client, sizeof(usbdevfs_urb));
  transfer->Buffer = Pointed(transfer->Request.get(), offsetof(usbdevfs_urb, buffer),
                             static_cast<std::size_t>(transfer->Urb().buffer_length));
  if (transfer->Urb().type == USBDEVFS_URB_TYPE_BULK && owner_ != client) return -EINVAL;
  return Begin(std::move(transfer));
}

int EmulatedUsb::Discard(Client client) {
  gulong which = 0;
  std::memcpy(&which, umockdev_ioctl_client_get_arg(client)->data, sizeof which);
  const auto found = std::ranges::find_if(
      waiting_, [&](const auto& transfer) { return transfer->Request->client_addr == which; });
  if (found == waiting_.end()) return -EINVAL;
  auto transfer = std::move(*found);
  waiting_.erase(found);
  End(std::move(transfer), -ENOENT);
  return 0;
}

int EmulatedUsb::Reap(Client client) {
  ++askings_;
  const auto found = std::ranges::find(ended_, client, &Transfer::Owner);
  if (found == ended_.end()) return attached_ ? -EAGAIN : -ENODEV;
  const auto transfer = std::move(*found);
  ended_.erase(found);
  const Memory pointer = Argument(client, sizeof(void*));
  umockdev_ioctl_data_set_ptr(pointer.get(), 0, transfer->Request.get());
  if (attached_) socket_.ShowReady(!ended_.empty());
  return 0;
}

// ---- The device

int EmulatedUsb::Begin(std::unique_ptr<Transfer> transfer) {
  if (transfer->Urb().type == USBDEVFS_URB_TYPE_CONTROL) return Control(std::move(transfer));
  return transfer->IsIn() ? Fetch(std::move(transfer)) : Hear(std::move(transfer));
}

int EmulatedUsb::Control(std::unique_ptr<Transfer> transfer) {
  const auto setup = transfer->Bytes();
  if (pullAtRequest_ == setup[1]) {
    pullAtRequest_.reset();
    Vanish();
    return -ENODEV;
  }
  if (const auto moved = chip_.Control(setup)) {
    transfer->Urb().actual_length = std::max(*moved, 0);
    End(std::move(transfer), std::min(*moved, 0));
  } else {
    waiting_.push_back(std::move(transfer));
  }
  return 0;
}

int EmulatedUsb::Hear(std::unique_ptr<Transfer> transfer) {
  const bool pulled = pullAt_ > 0 && --pullAt_ == 0;
  if (pulled && pulled_ == Pulled::kBeforeItHears) {
    Vanish();
    return -ENODEV;
  }
  if (outStalls_ > 0) {
    --outStalls_;
    End(std::move(transfer), -EPIPE);
    return 0;
  }
  const auto bytes = transfer->Bytes();
  const std::size_t taken = chip_.Hear(bytes);
  transfer->Urb().actual_length = static_cast<int>(taken);
  if (taken == bytes.size()) {
    End(std::move(transfer), 0);
  } else {
    waiting_.push_back(std::move(transfer));
  }
  FillWaiting();
  if (pulled) Vanish();
  return 0;
}

int EmulatedUsb::Fetch(std::unique_ptr<Transfer> transfer) {
  if (failures_.empty()) {
    waiting_.push_back(std::move(transfer));
    FillWaiting();
    return 0;
  }
  End(std::move(transfer), -failures_.front());
  failures_.pop_front();
  return 0;
}

void EmulatedUsb::FillWaiting() {
  while (true) {
    const auto found =
        std::ranges::find_if(waiting_, [](const auto& transfer) { return transfer->IsIn(); });
    if (found == waiting_.end()) return;
    const auto packet = chip_.NextPacket();
    if (!packet) return;
    auto transfer = std::move(*found);
    waiting_.erase(found);
    std::ranges::copy(*packet, transfer->Bytes().begin());
    transfer->Urb().actual_length = static_cast<int>(packet->size());
    End(std::move(transfer), 0);
    if (pullBehind_ > 0 && --pullBehind_ == 0) Vanish();
  }
}

void EmulatedUsb::End(std::unique_ptr<Transfer> transfer, int status) {
  transfer->Urb().status = status;
  ended_.push_back(std::move(transfer));
  socket_.ShowReady(true);
}

void EmulatedUsb::Vanish() {
  attached_ = false;
  chip_.PowerUp();
  while (!waiting_.empty()) {
    auto transfer = std::move(waiting_.front());
    waiting_.pop_front();
    End(std::move(transfer), -ESHUTDOWN);
  }
  owner_ = nullptr;
  socket_.Pull();
}

}  // namespace morvane::test
