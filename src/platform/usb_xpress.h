#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>

namespace morvane {

/// The bridge library's thirteen operations. Each returns the library's status, 0 for success.
/// Implementations take the wire's and the machine's time from the same `Clock` as their caller.
/// One device is open at a time. Without it, or for another handle than its own, what takes a
/// handle is `kInvalidHandle` at once, with a count of 0. A library that cannot be had at all is
/// `kDriverMissing` in everything.
class UsbXpress {
 public:
  using Status = std::int32_t;
  using Handle = std::int32_t;
  using ProductString = std::array<char, 1024>;

  static constexpr Status kSuccess = 0;
  static constexpr Status kDeviceNotFound = 0xFF;
  static constexpr Status kInvalidHandle = 0x01;
  static constexpr Status kReadError = 0x02;
  static constexpr Status kWriteError = 0x04;
  static constexpr Status kInvalidParameter = 0x06;
  /// The device is there and the system refuses it: another program has it, or it is another
  /// user's.
  static constexpr Status kDeviceIoFailed = 0x08;
  static constexpr Status kFunctionNotSupported = 0x0A;
  /// The system error, by which a library says that its driver is missing.
  static constexpr Status kDriverMissing = 0x0C;
  static constexpr Status kReadTimedOut = 0x0D;
  static constexpr Status kWriteTimedOut = 0x0E;

  static constexpr std::uint32_t kBaudRate = 115200;
  static constexpr std::uint16_t kEightDataBitsNoParity = 0x0800;
  static constexpr std::uint32_t kSerialString = 0;  ///< option of `GetProductString`

  virtual ~UsbXpress() = default;
  virtual Status GetDllVersion(std::uint32_t& high, std::uint32_t& low) = 0;
  /// `high` holds the major number in its upper and the minor number in its lower 16 bits.
  virtual Status GetDriverVersion(std::uint32_t& high, std::uint32_t& low) = 0;
  /// An empty bus is `kDeviceNotFound`. The indices of the devices below are those of the last
  /// call.
  virtual Status GetNumDevices(std::uint32_t& count) = 0;
  /// The NUL-terminated serial string of device `index` for option 0; another option is
  /// `kInvalidParameter`, another index `kDeviceNotFound`.
  virtual Status GetProductString(std::uint32_t index, ProductString& text,
                                  std::uint32_t option) = 0;
  /// `kDeviceNotFound` for an index that is not there, `kInvalidParameter` while a device is open,
  /// which then goes on. `handle` changes on success only.
  virtual Status Open(std::uint32_t index, Handle& handle) = 0;
  /// In milliseconds, for the library as a whole: they hold from before an opening and behind a
  /// closing.
  virtual Status SetTimeouts(std::uint32_t readMs, std::uint32_t writeMs) = 0;
  /// A speed or a form of bytes that the bridge does not have is `kInvalidParameter` and changes
  /// nothing.
  virtual Status SetBaudRate(Handle handle, std::uint32_t rate) = 0;
  virtual Status SetLineControl(Handle handle, std::uint16_t control) = 0;
  /// Forgets, in the directions that are not 0, what has not been sent and what has not been read.
  virtual Status FlushBuffers(Handle handle, std::uint8_t transmit, std::uint8_t receive) = 0;
  /// Blocks until all are written or the write time-out is over; `written` says how many were.
  /// Fewer are `kWriteTimedOut`, or `kWriteError` when the device is gone; the rest does not go
  /// out.
  virtual Status Write(Handle handle, std::span<const std::uint8_t> bytes,
                       std::uint32_t& written) = 0;
  /// Blocks until `bytes` is full or the read time-out is over; `read` says how many came. Fewer
  /// are `kReadTimedOut`; what comes later is there for the next read. One of no bytes is full.
  virtual Status Read(Handle handle, std::span<std::uint8_t> bytes, std::uint32_t& read) = 0;
  /// Of the bridge's output lines those in `mask` become as in `value`.
  virtual Status WriteLatch(Handle handle, std::uint8_t mask, std::uint8_t value) = 0;
  virtual Status Close(Handle handle) = 0;

  /// What there is to say to the operator, beyond its status, about the last `GetDllVersion`,
  /// `GetNumDevices`, `GetProductString` or `Open`, or a setting behind that which failed: why it
  /// failed and what helps, or what is worth knowing though it did not. Whole sentences, the lines
  /// ending with LF but for the last; empty where there is nothing.
  [[nodiscard]] virtual std::string Advice() const { return {}; }
};

}  // namespace morvane
