#pragma once

#include <umockdev.h>

#include <cerrno>
#include <cstdint>
#include <deque>
#include <memory>
#include <mutex>
#include <optional>
#include <span>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "bridges/usb/bridge_chip.h"
#include "support/emulated_chip.h"
#include "support/usb_socket.h"

namespace morvane::test {

/// A bridge chip at the emulated bus: the system's side of it, as programs see that, and what
/// stands behind it. May be used from any thread.
class EmulatedUsb {
 public:
  EmulatedUsb(UMockdevTestbed* testbed, int& lastAddress, UsbKind kind);
  ~EmulatedUsb();
  EmulatedUsb(const EmulatedUsb&) = delete;
  EmulatedUsb& operator=(const EmulatedUsb&) = delete;

  // What a test does.
  /// What the device has to say, in packets of 64 bytes at most, of which none holds bytes of two
  /// calls.
  void Say(const Bytes& bytes);
  /// Called with what the device hears, in the emulation's thread; what it gives back is said.
  void Answer(EmulatedChip::Answerer answer) {
    Locked([&] { chip_.Answer(std::move(answer)); });
  }
  void Pull();
  /// Anew, once it was pulled.
  void PlugIn();
  enum class Pulled { kBeforeItHears, kBeforeItAnswers };
  /// Pulled at the `count`-th transfer that it is sent from now on, 1 the next one.
  void PullAt(int count, Pulled when = Pulled::kBeforeItHears);
  /// Pulled as it is asked for something by this code.
  void PullAtRequest(std::uint8_t code);
  /// Pulled when so many packets of it have been fetched from now on.
  void PullBehind(int packets);
  void HoldByOther(bool held);
  /// Each request of this code ends with this error number.
  void FailOn(std::uint8_t code, int error) {
    Locked([&] { chip_.FailOn(code, error); });
  }
  void StallOn(std::uint8_t code) { FailOn(code, EPIPE); }
  /// Each request of this code is never answered.
  void BeSilentOn(std::uint8_t code) {
    Locked([&] { chip_.BeSilentOn(code); });
  }
  /// So many times, fetching from it ends with this error number.
  void FailNext(int error, int count);
  /// So many times, sending to it stalls.
  void StallOut(int count);
  /// Of what it is sent, it takes so much from now on and no more.
  void TakeOnly(std::size_t bytes) {
    Locked([&] { chip_.TakeOnly(bytes); });
  }
  /// The system's own driver has it no more.
  void Unbind();
  /// It does not know a claim that also puts the driver aside.
  void LikeAnOldSystem();
  /// Says this for good, however much is fetched, until it is pulled.
  void BabbleWith(Bytes packet) {
    Locked([&] { chip_.BabbleWith(std::move(packet)); });
  }
  /// Said behind the next purge, as a packet that was on its way.
  void SayBehindPurge(Bytes bytes) {
    Locked([&] { chip_.SayBehindPurge(std::move(bytes)); });
  }

  // What a test sees.
  /// Those to the chip, without those of the bus.
  [[nodiscard]] std::vector<bridges::ControlRequest> Requests() const {
    return Locked([&] { return chip_.Requests(); });
  }
  void ForgetRequests() {
    Locked([&] { chip_.ForgetRequests(); });
  }
  [[nodiscard]] Bytes Heard() const {
    return Locked([&] { return chip_.Heard(); });
  }
  [[nodiscard]] int TransfersHeard() const {
    return Locked([&] { return chip_.TransfersHeard(); });
  }
  /// The system's own driver has it.
  [[nodiscard]] bool HasDriver() const;
  [[nodiscard]] bool IsClaimed() const;
  /// How often a program asked whether something is ready.
  [[nodiscard]] int Askings() const;

 private:
  struct Transfer;
  using Transfers = std::deque<std::unique_ptr<Transfer>>;
  using Client = UMockdevIoctlClient*;

  /// What the action gives back is a copy.
  template <class Action>
  std::invoke_result_t<Action> Locked(Action action) const {
    const std::lock_guard lock(mutex_);
    return action();
  }

  static int OnCall(UMockdevIoctlBase* calls, Client client, void* self);

  /// The result of a call: 0 or more, or an error number below 0.
  int Serve(Client client, unsigned long call);
  int ServeInterface(Client client, unsigned long call);
  int ClaimAlone(Client client);
  int Claim(Client client);
  int Release(Client client);
  int DriverName(Client client) const;
  int DriverWish(Client client);
  int Submit(Client client);
  int Discard(Client client);
  int Reap(Client client);

  int Begin(std::unique_ptr<Transfer> transfer);
  int Control(std::unique_ptr<Transfer> transfer);
  int Hear(std::unique_ptr<Transfer> transfer);
  int Fetch(std::unique_ptr<Transfer> transfer);
  void FillWaiting();
  void End(std::unique_ptr<Transfer> transfer, int status);
  void Vanish();

  UsbSocket socket_;
  UMockdevIoctlBase* calls_;

  mutable std::mutex mutex_;
  EmulatedChip chip_;
  Transfers waiting_;
  Transfers ended_;
  Client owner_ = nullptr;  ///< who has claimed it
  bool attached_ = false;
  bool driver_;
  bool heldByOther_ = false;
  bool oldSystem_ = false;
  int askings_ = 0;
  int pullAt_ = 0;
  Pulled pulled_ = Pulled::kBeforeItHears;
  std::optional<std::uint8_t> pullAtRequest_;
  int pullBehind_ = 0;
  std::deque<int> failures_;  ///< of fetching
  int outStalls_ = 0;
};

}  // namespace morvane::test
