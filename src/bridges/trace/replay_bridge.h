#pragma once

#include <optional>
#include <string>

#include "bridges/trace/playback.h"
#include "platform/clock.h"
#include "platform/usb_xpress.h"

namespace morvane::bridges {

/// A trace in the place of the machine that it was written of: each operation takes as long, and
/// comes out, as it did then. What may differ says `Playback`. From the first difference on, and
/// behind the end, the device is gone: reads give nothing, openings find none.
class ReplayBridge final : public UsbXpress {
 public:
  ReplayBridge(TraceReader trace, Clock& clock) : playback_(std::move(trace)), clock_(clock) {}

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
  [[nodiscard]] std::string Advice() const override { return playback_.Advice(); }

  /// Where it stands, and what is wrong.
  [[nodiscard]] const Playback& Play() const { return playback_; }

 private:
  [[nodiscard]] std::optional<TraceLine> Answer(Operation what,
                                                const std::array<std::uint32_t, 3>& numbers = {},
                                                std::span<const std::uint8_t> bytes = {});
  [[nodiscard]] Status Version(Operation what, std::uint32_t& high, std::uint32_t& low);
  /// Of an operation whose status is all that comes of it.
  [[nodiscard]] Status Outcome(Operation what, const std::array<std::uint32_t, 3>& numbers,
                               Status gone);

  void Spend(std::chrono::microseconds time);

  Playback playback_;
  Clock& clock_;
  std::chrono::microseconds owed_{0};  ///< that the trace has taken and this has not
};

}  // namespace morvane::bridges
