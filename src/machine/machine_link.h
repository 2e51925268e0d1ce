#pragma once

#include <cstdint>
#include <string>

#include "platform/usb_xpress.h"
#include "wire/frame.h"

namespace morvane::machine {

/// The one way to the machine: moves frames of 8 and 136 bytes in both directions, scrambles and
/// checks them, and counts what went wrong. It never repeats a frame by itself.
class MachineLink {
 public:
  static constexpr UsbXpress::Handle kClosed = -1;
  enum Receive : std::uint8_t { kGood = 0, kBadCheck = 1, kTooShort = 2 };

  explicit MachineLink(UsbXpress& usb) : Usb(usb) {}

  UsbXpress& Usb;
  UsbXpress::Handle UsbHandle = kClosed;
  wire::Frame TxFrame{};  ///< plain bytes, filled by the caller
  wire::Frame RxFrame{};  ///< the last frame received, plain; byte 7 as it came off the wire
  Receive RxStatus = kGood;
  bool ReadFailed = false;  ///< set by a short read, cleared only by a send: required
  /// Consecutive bad receives; a good one sets it to 0. No send touches it.
  std::int16_t CommErrorCount = 0;
  std::string UsbProductString;  ///< serial string of the device that was opened
  std::string AdviceTold;        ///< what the bridge had to say of a link that was opened
  std::uint32_t UsbDllVersionHigh = 0;
  std::uint32_t UsbDllVersionLow = 0;
  std::uint32_t UsbDriverVersionHigh = 0;  ///< major in the upper, minor in the lower 16 bits
  std::uint32_t UsbDriverVersionLow = 0;

  [[nodiscard]] bool IsOpen() const { return UsbHandle != kClosed; }

  /// Writes bytes 0 to 6 of `TxFrame` with their check byte; `TxFrame[7]` stays as it is.
  void SendShortFrame();
  /// Writes all 136 bytes; `TxFrame[7]` is 0 then.
  void SendLongFrame();
  /// `SendLongFrame` or `SendShortFrame` by the code of `TxFrame`.
  void SendFrame();
  /// Reads 8 or 136 bytes into `RxFrame`, blocking up to the read time-out; updates `RxStatus`,
  /// `ReadFailed` and `CommErrorCount`. A bad receive flushes both directions.
  void ReceiveFrame();

  void SetLinkTimeouts(std::int16_t ms);
  void CloseLink();
  /// The latch line is high while a window that drives the machine is open.
  void MachineLatchOn();
  void MachineLatchOff();
  void FlushLink();
  /// Forgets what has been received, and nothing of what is still being sent.
  void DrainLink();

 private:
  void Send(std::size_t size);
  bool Read(std::span<std::uint8_t> bytes);

  wire::Frame txWire_{};
};

}  // namespace morvane::machine
