#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "platform/clock.h"
#include "platform/usb_xpress.h"

namespace morvane::test {

using Bytes = std::vector<std::uint8_t>;

/// The wire image of a plain frame, worked out by the closed formula of the key instead of a
/// running one: byte i goes xor S + step x i, behind the check byte S + step x (i - 1).
[[nodiscard]] Bytes OnTheWire(Bytes plain, int step);
/// The plain bytes of a wire image; byte 7 becomes 0.
[[nodiscard]] Bytes OffTheWire(const Bytes& wire, int step);
/// A plain short frame whose missing bytes are 0.
[[nodiscard]] Bytes Short(Bytes bytes);
/// A plain long frame whose missing bytes are 0.
[[nodiscard]] Bytes Long(Bytes bytes);

/// A bridge that notes every call and answers what the test tells it. A read that lacks bytes takes
/// its time-out from the clock.
class ScriptedBridge final : public UsbXpress {
 public:
  explicit ScriptedBridge(Clock& clock) : clock_(clock) {}

  std::vector<std::string> Calls;  ///< names with arguments, reads and writes left out
  std::vector<Bytes> Sent;         ///< plain frames, in order
  int Overlaps = 0;   ///< frames written before the reply to the one before had been read
  int Malformed = 0;  ///< frames whose size does not go with their code, or whose check fails
  std::vector<std::string> Devices{"0001"};
  std::uint32_t DriverVersion = 0x30001;
  std::string FailingCall;  ///< the name of a call that answers `FailureStatus`
  Status FailureStatus = kInvalidParameter;
  std::string Words;  ///< its advice
  /// The bytes that come back for a plain frame; they join what is still unread.
  std::function<Bytes(const Bytes& plain)> Answer;
  std::function<void(bool on)> OnLatch;
  /// Plain replies, one for each frame sent; used when `Answer` is not set. An empty one is
  /// silence.
  std::deque<Bytes> Replies;
  Bytes Unread;

  Status GetDllVersion(std::uint32_t& high, std::uint32_t& low) override;
  Status GetDriverVersion(std::uint32_t& high, std::uint32_t& low) override;
  Status GetNumDevices(std::uint32_t& count) override;
  Status GetProductString(std::uint32_t index, ProductString& text, std::uint32_t option) override;
  Status Open(std::uint32_t index, Handle& handle) override;
  Status SetTimeouts(std::uint32_t readMs, std::uint32_t writeMs) override;
  Status SetBaudRate(Handle handle, std::uint32_t rate) override;
  Status SetLineControl(Handle handle, std::uint16_t control) override;
  Status FlushBuffers(Handle handle, std::uint8_t transmit, std::uint8_t receive) override;
  Status Write(Handle handle, std::span<const std::uint8_t> bytes, std::uint32_t& written) override;
  Status Read(Handle handle, std::span<std::uint8_t> bytes, std::uint32_t& read) override;
  Status WriteLatch(Handle handle, std::uint8_t mask, std::uint8_t value) override;
  Status Close(Handle handle) override;
  [[nodiscard]] std::string Advice() const override { return Words; }

 private:
  Status Note(const std::string& name, const std::string& arguments = "");
  void CheckFrame(const Bytes& wire, const Bytes& plain);
  Clock& clock_;
  std::uint32_t readMs_ = 0;
  bool awaited_ = false;  ///< a frame is out whose reply nobody has read
};

}  // namespace morvane::test
