#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <span>
#include <vector>

#include "bridges/usb/bridge_chip.h"
#include "support/usb_socket.h"

namespace morvane::test {

using Bytes = std::vector<std::uint8_t>;

/// The bridge chip as its maker describes it, and what stands behind it. It is strict: it stalls on
/// what it does not know, and while it is off or without a speed, bytes are lost in both
/// directions.
class EmulatedChip {
 public:
  explicit EmulatedChip(UsbKind kind) : kind_(std::move(kind)) {}

  // What its plug does.
  void PowerUp();
  /// Of a control transfer, its setup and its data: how many bytes of data were moved, or an error
  /// number below 0; nothing when it does not answer.
  std::optional<int> Control(std::span<std::uint8_t> setup);
  /// How many of them it takes.
  std::size_t Hear(std::span<const std::uint8_t> bytes);
  /// What it says next.
  std::optional<Bytes> NextPacket();

  // What a test does; `EmulatedUsb` says what it is.
  using Answerer = std::function<Bytes(std::span<const std::uint8_t>)>;
  void Answer(Answerer answer) { answer_ = std::move(answer); }
  void Say(const Bytes& bytes);
  void FailOn(std::uint8_t code, int error) { failing_[code] = error; }
  void BeSilentOn(std::uint8_t code) { silent_.insert(code); }
  void TakeOnly(std::size_t bytes) { room_ = bytes; }
  void BabbleWith(Bytes packet) { babble_ = std::move(packet); }
  void SayBehindPurge(Bytes bytes) { behindPurge_ = std::move(bytes); }

  [[nodiscard]] const std::vector<bridges::ControlRequest>& Requests() const { return requests_; }
  void ForgetRequests() { requests_.clear(); }
  [[nodiscard]] const Bytes& Heard() const { return heard_; }
  [[nodiscard]] int TransfersHeard() const { return transfersHeard_; }

 private:
  /// The answer; nothing for a stall.
  [[nodiscard]] std::optional<Bytes> Do(const bridges::ControlRequest& request);
  [[nodiscard]] std::optional<Bytes> String(const bridges::ControlRequest& request) const;
  [[nodiscard]] std::optional<Bytes> Further(const bridges::ControlRequest& request) const;
  bool Set(const bridges::ControlRequest& request);
  bool Switch(std::uint16_t on);
  bool SetSpeed(bool known);
  bool Purge(std::uint16_t which);
  [[nodiscard]] bool Works() const { return on_ && hasSpeed_; }

  UsbKind kind_;
  Answerer answer_;
  bool on_ = false;
  bool hasSpeed_ = false;
  std::deque<Bytes> packets_;  ///< to be said
  Bytes behindPurge_;
  Bytes babble_;
  Bytes heard_;
  int transfersHeard_ = 0;
  std::optional<std::size_t> room_;
  std::vector<bridges::ControlRequest> requests_;
  std::map<std::uint8_t, int> failing_;
  std::set<std::uint8_t> silent_;
};

}  // namespace morvane::test
