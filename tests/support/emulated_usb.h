#pragma once

#include <umockdev.h>

#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <vector>

#include "bridges/bridge_chip.h"
#include "support/usb_socket.h"

namespace morvane::test {

using Bytes = std::vector<std::uint8_t>;

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
  using Answerer = std::function<Bytes(std::span<const std::uint8_t>)>;
  void Answer(Answerer answer);
  void Pull();
  /// Anew, once it was pulled.
  void PlugIn();
  enum class Pulled { kBeforeItHears, kBeforeItAnswers };
  /// Pulled at the `count`-th transfer that it is sent from now on, 1 the next one.
  void PullAt(int count, Pulled when = Pulled::kBeforeItHears);
  void HoldByOther(bool held);
  /// Each request of this code stalls.
  void StallOn(std::uint8_t code);
  /// An endpoint stalls so many times; each time, until it is cleared.
  void StallIn(int count);
  void StallOut(int count);
  /// Of what it is sent, it takes so much from now on and no more.
  void TakeOnly(std::size_t bytes);
  /// It does not know a claim that also puts the driver aside.
  void LikeAnOldSystem();
  /// Says this for good, however much is fetched, until it is pulled.
  void BabbleWith(Bytes packet);
  /// Said behind the next purge, as a packet that was on its way.
  void SayBehindPurge(Bytes bytes);

  // What a test sees.
  /// Those to the chip, without the system's own.
  [[nodiscard]] std::vector<bridges::ControlRequest> Requests() const;
  void ForgetRequests();
  [[nodiscard]] Bytes Heard() const;
  [[nodiscard]] int TransfersHeard() const;
  /// The system's own driver has it.
  [[nodiscard]] bool HasDriver() const;
  [[nodiscard]] bool IsClaimed() const;
  /// How often a program asked whether something is ready.
  [[nodiscard]] int Askings() const;

 private:
  struct Transfer;
  using Transfers = std::deque<std::unique_ptr<Transfer>>;
  using Client = UMockdevIoctlClient*;

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
  int Control(std::span<std::uint8_t> setup);
  int ControlAnswer(const bridges::ControlRequest& request, std::span<std::uint8_t> data);
  [[nodiscard]] Bytes StringDescriptor(int number) const;
  int Hear(std::unique_ptr<Transfer> transfer);
  void FillWaiting();
  void End(std::unique_ptr<Transfer> transfer, int status);
  void Queue(const Bytes& bytes);
  void Vanish();

  UsbSocket socket_;
  UMockdevIoctlBase* calls_;

  mutable std::mutex mutex_;
  Answerer answer_;
  std::deque<Bytes> packets_;  ///< to be said
  Bytes behindPurge_;
  Bytes babble_;
  Bytes heard_;
  std::vector<bridges::ControlRequest> requests_;
  std::set<std::uint8_t> stalls_;
  Transfers waiting_;
  Transfers ended_;
  Client owner_ = nullptr;  ///< who has claimed it
  bool attached_ = false;
  bool driver_;
  bool heldByOther_ = false;
  bool oldSystem_ = false;
  int askings_ = 0;
  int transfersHeard_ = 0;
  int pullAt_ = 0;
  Pulled pulled_ = Pulled::kBeforeItHears;
  int inStalls_ = 0;
  int outStalls_ = 0;
  std::optional<std::size_t> room_;
};

/// A bus of the system with nothing at it but what a test puts there. The process runs with
/// umockdev's library preloaded; the processes that it starts see the same bus.
class EmulatedBus {
 public:
  EmulatedBus();
  ~EmulatedBus();
  EmulatedBus(const EmulatedBus&) = delete;
  EmulatedBus& operator=(const EmulatedBus&) = delete;
  EmulatedUsb& Attach(const UsbKind& kind = {});

 private:
  UMockdevTestbed* testbed_;
  int lastAddress_ = 1;  ///< the bus's own
  std::vector<std::unique_ptr<EmulatedUsb>> devices_;
};

}  // namespace morvane::test
