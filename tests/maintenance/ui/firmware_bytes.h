#pragma once

#include <string>

namespace morvane::maintenance {

/// A firmware file: a code of this version, and a bitstream.
inline std::string FirmwareBytes(std::size_t code, std::size_t bitstream, char major, char minor) {
  std::string bytes(16 + code + bitstream, '\x01');
  for (std::size_t i = 0; i < 4; ++i) {
    bytes[i] = static_cast<char>(code >> 8 * i);
    bytes[4 + i] = static_cast<char>(bitstream >> 8 * i);
  }
  bytes[16 + 16] = major;  // in the flash, behind a header of 16 bytes, at 0x20
  bytes[16 + 17] = minor;
  return bytes;
}

}  // namespace morvane::maintenance
