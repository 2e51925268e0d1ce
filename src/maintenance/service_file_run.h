#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "wire/picture_replies.h"
#include "wire/service_replies.h"

namespace morvane::maintenance {

/// What the gathering of a service file, its window and a test deal have in common. It lives as
/// long as the console.
struct ServiceFileRun {
  /// A test deal has failed: no prompt, and the pictures are those of the machine's last error.
  bool TestDealError = false;
  bool ServiceCancelled = false;
  std::uint16_t ServiceCaptureTime = 0;
  std::uint8_t ServiceFocus = 0;
  wire::VerdictReply LastVerdict;
  std::array<std::uint32_t, 256> ErrorCounters{};  ///< the first: boards dealt
  std::array<std::uint8_t, 128> TestBytes{};
  std::array<std::uint8_t, 8> DieIdentity{};
  std::array<std::uint8_t, 8> SetIdentity{};
  std::string Written;  ///< the last file that was made
};

}  // namespace morvane::maintenance
