#pragma once

#include <algorithm>
#include <array>
#include <cstdint>

#include "support/scripted_bridge.h"

namespace morvane::maintenance {

/// A machine's manufacturing record and counters on paper.
struct PaperRecord {
  /// Serial number, hardware identifier, day, month, year: bytes 8 to 15 of the frame that writes.
  std::array<std::uint8_t, 8> Block{0x12, 0x67, 0x00, 0x67, 14, 6, 0x07, 0xE3};
  std::array<std::uint32_t, 64> Counters{};
  std::uint8_t EraseStatus = 0;
  std::uint8_t WriteStatus = 0;
  std::uint8_t ErrorStatus = 0;
  bool HearsCounter = true;  ///< it takes the number of boards that it is told
  bool HearsRecord = true;   ///< it takes the record, and does not only say so

  /// The plain reply; empty: no frame of these, or one that is not answered.
  test::Bytes ReplyTo(const test::Bytes& plain) {
    switch (plain[0]) {
      case 18:
        return Half(plain[1]);
      case 51:
        return Page(plain[2]);
      case 52:
        if (HearsCounter) Counters[0] = Number(plain, 2);
        return {};
      case 43:
        if (ErrorStatus == 0) std::fill(Counters.begin() + 1, Counters.end(), 0U);
        return test::Short({43, ErrorStatus});
      case 44:
        if (HearsRecord) Block.fill(0xFF);
        return test::Short({44, EraseStatus});
      case 173:
        if (HearsRecord && WriteStatus == 0) std::copy_n(plain.begin() + 8, 8, Block.begin());
        return test::Short({45, WriteStatus});
      default:
        return {};
    }
  }

 private:
  [[nodiscard]] test::Bytes Half(std::uint8_t half) const {
    const std::size_t at = half == 1 ? 0 : 4;
    return test::Short({18, half, Block[at], Block[at + 1], Block[at + 2], Block[at + 3]});
  }
  [[nodiscard]] test::Bytes Page(std::uint8_t page) const {
    test::Bytes reply = test::Long({179, 0, page});
    for (std::size_t i = 0; i < 32 && page < 2; ++i) {
      const std::uint32_t value = Counters[32U * page + i];
      for (std::size_t byte = 0; byte < 4; ++byte) {
        reply[8 + 4 * i + byte] = static_cast<std::uint8_t>(value >> (24 - 8 * byte));
      }
    }
    return reply;
  }
  static std::uint32_t Number(const test::Bytes& plain, std::size_t at) {
    std::uint32_t number = 0;
    for (std::size_t i = at; i < at + 4; ++i) number = number << 8U | plain[i];
    return number;
  }
};

}  // namespace morvane::maintenance
