#pragma once

#include <array>
#include <cstdint>

#include "wire/commands.h"
#include "wire/frame.h"

// Every reply's bytes, in the manner of commands.h. `Get` does not look at the code: the caller
// has.

namespace morvane::machine {

/// 0x19, or 0x9C in a long frame whose payload means nothing. Byte 1: state; bytes 2 to 5, bits 5
/// to 0: the cards in pockets 1 to 4; byte 6: bit 2 board slot active, 3 pedal, 4 board inserted.
struct StatusReply {
  static constexpr std::uint8_t kIdle = 0;
  static constexpr std::uint8_t kLastError = 0xF0;  ///< above it: busy
  static constexpr std::uint8_t kBusy = 0xFF;

  std::uint8_t State = kIdle;
  std::array<std::uint8_t, 5> Pocket{};  ///< [pocket 1..4]
  bool SlotActive = false;
  bool Pedal = false;  ///< this and the next stay set until they are acknowledged
  bool BoardInserted = false;
  void Put(Frame& frame) const;
  [[nodiscard]] static StatusReply Get(const Frame& frame);
};

/// 0x18. Only the code matters.
struct AcceptedReply {
  void Put(Frame& frame) const { frame[0] = kReplyAccepted; }
};

/// 0x1A. Bytes 1 and 2: firmware; 3 and 4: boot code; 5: flash. Minor bytes are packed decimal.
struct VersionReply {
  std::uint8_t FirmwareMajor = 0;
  std::uint8_t FirmwareMinor = 0;
  std::uint8_t BootMajor = 0;
  std::uint8_t BootMinor = 0;
  std::uint8_t Flash = 0;
  void Put(Frame& frame) const;
  [[nodiscard]] static VersionReply Get(const Frame& frame);
};

/// 0x12. Byte 1: page. Page 1: bytes 2, 3 serial number, 4, 5 hardware identity. Page 2: bytes 2
/// and 3 day and month of manufacture, 4, 5 its year.
struct IdentityReply {
  static constexpr std::uint16_t kBoardNumberReader = 1U << 2U;
  static constexpr std::uint16_t kLargeIndexCards = 1U << 3U;
  std::uint8_t Page = 1;
  std::uint16_t High = 0;  ///< serial number
  std::uint16_t Low = 0;   ///< hardware identity
  void Put(Frame& frame) const;
  [[nodiscard]] static IdentityReply Get(const Frame& frame);
};

/// 0xB3. Byte 2: counter; bytes 8 to 11: its value.
struct CounterReply {
  std::uint8_t Counter = 0;
  std::uint32_t Value = 0;
  void Put(Frame& frame) const;
  [[nodiscard]] static CounterReply Get(const Frame& frame);
};

/// 0x1B. Byte 1, bits 5 to 0: selector; byte 2, for selector 4: the raw board label.
struct SensorReply {
  std::uint8_t Selector = 0;
  std::uint8_t Value = 0;
  void Put(Frame& frame) const;
  [[nodiscard]] static SensorReply Get(const Frame& frame);
};

/// 0x9D. Bytes 8 to 59: the pocket of each card, 0 for a card that was not seen.
struct BoardReply {
  HandList Pockets{};
  void Put(Frame& frame) const;
  [[nodiscard]] static BoardReply Get(const Frame& frame);
};

/// 0xA0. Bytes 8 to 62: element n (1..55) belongs to the card at byte 7 + n, 0 = not dealt.
struct CardLogReply {
  std::array<std::uint8_t, 56> Cards{};
  void Put(Frame& frame) const;
  [[nodiscard]] static CardLogReply Get(const Frame& frame);
};

/// 0x9E. Bytes 9 to 135 are numbers for the diagnosis text.
inline constexpr std::size_t kTestFirst = 9;

/// The 4-of-8 code of board labels: the n-th byte value with exactly four bits set is board n
/// (15 is 1, 240 is 70); every other byte is 0.
inline constexpr std::array<std::uint8_t, 256> BoardLabelTable = [] {
  std::array<std::uint8_t, 256> table{};
  std::uint8_t board = 0;
  for (unsigned value = 0; value < table.size(); ++value) {
    unsigned bits = 0;
    for (unsigned rest = value; rest != 0; rest >>= 1U) bits += rest & 1U;
    if (bits == 4) table[value] = ++board;
  }
  return table;
}();

/// The label of board 1..70; 0 for a board that has none.
[[nodiscard]] std::uint8_t LabelOfBoard(int board);

}  // namespace morvane::machine
