#pragma once

#include <cstdint>
#include <span>

#include "platform/clock.h"
#include "platform/usb_xpress.h"
#include "simulator/byte_queue.h"
#include "simulator/options.h"
#include "simulator/wired_machine.h"
#include "wire/frame.h"

namespace morvane::simulator {

/// A machine on a bridge that is made of neither: wire bytes in, wire bytes out. It takes its time
/// from `clock` as a real one would (the wire's and its own; none at speed 0), and a read that
/// lacks bytes always costs the whole read time-out. An exchange allocates nothing.
class SimulatedMachine final : public UsbXpress, public WiredMachine {
 public:
  SimulatedMachine(const Options& options, Clock& clock);

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

 private:
  [[nodiscard]] bool IsOpen(Handle handle) const;
  void Carry(const Saying& saying);
  void DeliverLate();

  Options options_;
  Clock& clock_;
  bool open_ = false;
  Time readTimeout_{0};
  Time onItsWay_{0};  ///< what the next read has to wait before the reply begins

  // The program's end.
  ByteQueue received_;
  wire::Frame late_{};
  std::size_t lateCount_ = 0;
  bool lateMissed_ = false;  ///< a read has timed out on it
};

}  // namespace morvane::simulator
