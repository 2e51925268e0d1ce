#pragma once

#include <deque>
#include <map>
#include <string>
#include <vector>

#include "support/scripted_bridge.h"

namespace morvane::maintenance {

/// The bytes of a firmware file, written by hand from its layout.
inline std::string FileOf(const std::string& code, const std::string& bitstream) {
  std::string bytes;
  for (const std::size_t number : {code.size(), bitstream.size(), std::size_t{7}, std::size_t{8}}) {
    for (unsigned shift = 0; shift < 32; shift += 8) {
      bytes += static_cast<char>(number >> shift & 0xFFU);
    }
  }
  return bytes + code + bitstream;
}

/// A code whose bytes 0x10 and 0x11, in the machine 0x20 and 0x21, are this version.
inline std::string CodeOf(int major, int minor, std::size_t size = 20) {
  std::string code(size, '\x01');
  code[0x10] = static_cast<char>(major);
  code[0x11] = static_cast<char>(minor);
  return code;
}

/// A flash on paper, which answers each frame of a download with a status.
class PaperFlash {
 public:
  /// By number on the wire; -1 is the start. What is not there is 0.
  std::map<int, int> Status;
  /// The code that answers a block.
  std::uint8_t BlockCode = 0x2A;
  std::vector<int> Heard;  ///< the numbers of what was sent, -1 for a start

  /// What the machine answers to the plain frame, on the wire; nothing to any other.
  [[nodiscard]] test::Bytes ReplyTo(const test::Bytes& plain) {
    const bool isStart = plain[0] == 41;
    if (!isStart && plain[0] != 170) return {};
    const int number = isStart ? -1 : plain[2] * 256 + plain[3];
    Heard.push_back(number);
    const auto planned = Status.find(number);
    const int status = planned == Status.end() ? 0 : planned->second;
    return test::OnTheWire(
        test::Short({isStart ? std::uint8_t{41} : BlockCode, static_cast<std::uint8_t>(status)}),
        21);
  }
};

}  // namespace morvane::maintenance
