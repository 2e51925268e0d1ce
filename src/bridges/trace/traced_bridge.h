#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>

#include "bridges/trace/trace_notes.h"
#include "platform/usb_xpress.h"

namespace morvane::bridges {

/// A link that is traced: all that is asked of the one behind it is written down with its outcome,
/// and nothing else changes, whatever becomes of the trace.
class TracedBridge final : public UsbXpress {
 public:
  TracedBridge(std::unique_ptr<UsbXpress> behind, const TraceOrder& order, const Clock& clock)
      : behind_(std::move(behind)), notes_(order, clock) {}

  [[nodiscard]] const TraceFile& File() const { return notes_.File(); }
  /// Ends the trace; what is asked of the link from now on is not noted. Whoever tells its trouble
  /// ends it first, the destructor does it otherwise.
  void End() { notes_.End(); }

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
  [[nodiscard]] std::string Advice() const override { return behind_->Advice(); }

 private:
  template <typename Call>
  void Do(Operation what, Call call);
  Status Note(const std::array<std::uint32_t, 3>& numbers);
  Status NoteFailureWithAdvice(const std::array<std::uint32_t, 3>& numbers);
  Status NoteWithAdvice(const std::array<std::uint32_t, 3>& numbers);

  std::unique_ptr<UsbXpress> behind_;
  TraceNotes notes_;
  TraceLine line_;  ///< of the operation that is under way
};

}  // namespace morvane::bridges
