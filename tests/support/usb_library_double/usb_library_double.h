#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/usb_xpress.h"

namespace morvane::test {

/// What stands behind the double of the bridge library, which passes everything on to it. Without
/// one the bus is empty.
struct UsbLibraryDesk {
  UsbXpress& Behind;
  std::vector<std::string> Calls{};  ///< in order, each with its arguments as they came over
  /// When it is not 0, the call of this name ends with this status and does nothing.
  std::string FailingCall{};
  std::int32_t FailureStatus = 0;
  /// The library says of each read and write that this many bytes more have passed.
  std::uint32_t Boast = 0;
  /// What an opened device has for a handle; more bits than 32.
  std::uint64_t Handle = 0x0123'4567'89AB'CDEF;
};

/// The name and the signature of the double's own function, which gives it a desk or takes it away.
inline constexpr const char* kUseDesk = "UseDesk";
using UseDeskFunction = void (*)(UsbLibraryDesk* desk);

}  // namespace morvane::test
