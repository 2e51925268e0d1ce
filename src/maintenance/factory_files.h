#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "maintenance/firmware_file.h"

namespace morvane::maintenance {

// What the factory makes of the files of a firmware build, bytes to bytes.

/// How many bytes a file may have.
struct SizeLimits {
  std::uint64_t Least = 0;
  std::uint64_t Most = 0;

  [[nodiscard]] constexpr bool Hold(std::uint64_t bytes) const {
    return bytes >= Least && bytes <= Most;
  }
};

inline constexpr SizeLimits kCodeSizes{9, FlashImage::kLongest};
inline constexpr SizeLimits kBitstreamSizes{54981, 54981};
inline constexpr SizeLimits kBootSizes{0, 8192};
/// Several times what describes all addresses.
inline constexpr SizeLimits kTextHexSizes{0, 1U << 20U};

/// The bytes of the `.adc` file that holds both; their sizes are within the limits.
[[nodiscard]] std::string FirmwareBytes(std::string_view code, std::string_view bitstream);

/// The text of `boot.c`, an array in C: the boot code, whose size is within the limits, and 0xFF up
/// to 8192 entries.
[[nodiscard]] std::string BootSource(std::string_view boot);

/// What is wrong in a text hex file, and the line (from 1) where it stands.
struct TextHexFault {
  int Line = 0;
  std::string_view What;

  bool operator==(const TextHexFault&) const = default;
};

/// A text hex file ("@" and an address, lines of 16 bytes, "q") as Intel HEX in `hex`, which stays
/// as it is when there is a fault.
[[nodiscard]] std::optional<TextHexFault> TextToHex(std::string_view text, std::string& hex);

/// The file that is made of the text hex file `path`: "hex" in place of the last three letters of
/// its name. One that has not so many gets an extension.
[[nodiscard]] std::string HexFileOf(std::string_view path);

}  // namespace morvane::maintenance
