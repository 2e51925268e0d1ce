#pragma once

#include <chrono>
#include <cstdint>
#include <span>

#include "platform/usb_xpress.h"
#include "simulator/talk.h"

namespace morvane::bridges {

using simulator::Bytes;

/// A bridge with one machine behind it, and what can be done there. What a bridge does that is not
/// told here is its own affair.
class ContractDesk {
 public:
  ContractDesk() = default;
  virtual ~ContractDesk() = default;
  ContractDesk(const ContractDesk&) = delete;
  ContractDesk& operator=(const ContractDesk&) = delete;

  [[nodiscard]] virtual UsbXpress& Bridge() = 0;
  /// On the clock that a read spends.
  [[nodiscard]] virtual std::chrono::microseconds Now() const = 0;

  /// What was done at the program's end reaches the machine, and what it says comes back, where
  /// that does not happen by itself.
  virtual void Carry() {}
  /// Of the reply to the next command the first `bytes` come.
  virtual void CutNextReply(std::uint8_t bytes) = 0;
  /// The reply to the next command comes with `LetLateReplyCome`, behind a read that times out.
  virtual void DelayNextReply() = 0;
  virtual void LetLateReplyCome() {}
  virtual void ExpectLatch(bool on) = 0;
};

/// The program at the end of a desk's bridge.
class ContractClient {
 public:
  static constexpr UsbXpress::Handle kNone = -1;
  /// Nobody waits this long for what comes.
  static constexpr std::uint32_t kLongMs = 5000;

  explicit ContractClient(ContractDesk& desk) : Desk(desk), Usb(desk.Bridge()) {}

  /// Looks for the device, without which some bridges have none.
  void FindDevice();
  /// As the program opens it.
  void Open(std::uint32_t readMs = kLongMs);
  void SetReadTime(std::uint32_t ms);
  /// The wire image of a plain command, and the machine hears it.
  void Send(const Bytes& plain);
  std::uint32_t Write(const Bytes& bytes);
  /// What came, `count` bytes at most; the status is in `Status` then.
  Bytes Read(std::size_t count);
  /// What it cost, in milliseconds, not to get `count` bytes.
  double MsOfShortRead(std::size_t count);
  void Flush(std::uint8_t transmit, std::uint8_t receive);

  ContractDesk& Desk;
  UsbXpress& Usb;
  UsbXpress::Handle Handle = kNone;
  UsbXpress::Status Status = UsbXpress::kSuccess;
};

/// What every bridge does alike.
struct ContractCase {
  const char* Name;
  void (*Hold)(ContractDesk& desk);
};
[[nodiscard]] std::span<const ContractCase> DeviceCases();
[[nodiscard]] std::span<const ContractCase> HandleCases();
[[nodiscard]] std::span<const ContractCase> ExchangeCases();

}  // namespace morvane::bridges
