#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "bridges/usb/usb_xpress_functions.h"
#include "platform/shared_library.h"
#include "platform/usb_xpress.h"

namespace morvane::bridges {

/// The bridge as the library of its maker's driver shows it. The library is loaded when it is
/// first asked for something, and asked for again as long as it is not there, since the driver may
/// be installed meanwhile. Without it, or without one of its functions, everything is
/// `kDriverMissing`, and nothing of it is called.
class UsbXpressLibrary final : public UsbXpress {
 public:
#ifdef _WIN32
  static constexpr const char* kName = "kvtusb31.dll";
#else
  static constexpr const char* kName = "libkvtusb31.so";
#endif

  /// `name` is a path, or the bare name of a library of the system's.
  explicit UsbXpressLibrary(std::string name = kName) : name_(std::move(name)) {}
  UsbXpressLibrary(const UsbXpressLibrary&) = delete;
  UsbXpressLibrary& operator=(const UsbXpressLibrary&) = delete;
  /// Closes what is open.
  ~UsbXpressLibrary() override;

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

  /// Which file is missing, or which function; that a device may be another program's.
  [[nodiscard]] std::string Advice() const override { return advice_; }

 private:
  using Raw = UsbXpressFunctions::RawHandle;

  [[nodiscard]] bool Load();
  /// Calls one of the library's functions.
  template <class Function, class... Arguments>
  Status Call(Function UsbXpressFunctions::*which, Arguments... arguments);
  /// The same for one that takes the handle first.
  template <class Function, class... Arguments>
  Status CallOpened(Handle handle, Function UsbXpressFunctions::*which, Arguments... arguments);

  std::string name_;
  std::optional<SharedLibrary> library_;
  UsbXpressFunctions functions_;
  std::optional<Raw> opened_;  ///< the library's own handle, which may have more bits than ours
  std::string advice_;
};

}  // namespace morvane::bridges
