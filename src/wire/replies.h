#pragma once

#include <string>

#include "wire/fields.h"

// Every reply's bytes, in the manner of commands.h.

namespace morvane::wire {

/// How the run stands and what has happened at the machine. It may come in a long frame of another
/// code, whose payload means nothing.
struct StatusReply {
  static constexpr std::uint8_t Code = 0x19;
  static constexpr std::uint8_t LongCode = 0x9C;
  static constexpr std::uint8_t kIdle = 0;
  static constexpr std::uint8_t kLastError = 0xF0;  ///< above it: busy
  static constexpr std::uint8_t kBusy = 0xFF;
  static constexpr std::uint8_t kCountBits = 0x3F;

  std::uint8_t State = kIdle;
  std::array<std::uint8_t, 5> Pocket{};  ///< [pocket 1..4]: the cards in it, 0..63
  bool SlotActive = false;
  bool Pedal = false;  ///< this and the next stay set until they are acknowledged
  bool BoardInserted = false;

  static constexpr auto Fields =
      std::tuple(Byte(1, &StatusReply::State), Array(2, &StatusReply::Pocket, 1, kCountBits),
                 Bit(6, 2, &StatusReply::SlotActive), Bit(6, 3, &StatusReply::Pedal),
                 Bit(6, 4, &StatusReply::BoardInserted));
};

/// A start command has been taken.
struct AcceptedReply {
  static constexpr std::uint8_t Code = 0x18;

  static constexpr auto Fields = std::tuple<>();
};

/// Minor numbers are packed decimal: 0x27 is shown as 27.
struct VersionReply {
  static constexpr std::uint8_t Code = 0x1A;
  std::uint8_t FirmwareMajor = 0;
  std::uint8_t FirmwareMinor = 0;
  std::uint8_t BootMajor = 0;
  std::uint8_t BootMinor = 0;
  std::uint8_t Flash = 0;

  static constexpr auto Fields =
      std::tuple(Byte(1, &VersionReply::FirmwareMajor), Byte(2, &VersionReply::FirmwareMinor),
                 Byte(3, &VersionReply::BootMajor), Byte(4, &VersionReply::BootMinor),
                 Byte(5, &VersionReply::Flash));
};

/// Page 1: serial number and hardware identity. Page 2: day and month of manufacture, a byte each,
/// and its year.
struct IdentityReply {
  static constexpr std::uint8_t Code = 0x12;
  static constexpr std::uint16_t kBoardNumberReader = 1U << 2U;
  static constexpr std::uint16_t kLargeIndexCards = 1U << 3U;
  static constexpr std::uint16_t kVideoSettings = 1U << 5U;
  static constexpr std::uint16_t kOpticalBoardSwitch = 1U << 6U;

  std::uint8_t Page = 1;
  std::uint16_t High = 0;  ///< serial number
  std::uint16_t Low = 0;   ///< hardware identity

  static constexpr auto Fields =
      std::tuple(Byte(1, &IdentityReply::Page), Number(2, &IdentityReply::High),
                 Number(4, &IdentityReply::Low));
};

struct CounterReply {
  static constexpr std::uint8_t Code = 0xB3;
  std::uint8_t Counter = 0;
  std::uint32_t Value = 0;

  static constexpr auto Fields =
      std::tuple(Byte(2, &CounterReply::Counter), Number(8, &CounterReply::Value));
};

struct SensorReply {
  static constexpr std::uint8_t Code = 0x1B;
  std::uint8_t Selector = 0;  ///< 0..63
  std::uint8_t Value = 0;     ///< for the board label: its raw byte

  static constexpr auto Fields =
      std::tuple(Byte(1, &SensorReply::Selector, 0x3F), Byte(2, &SensorReply::Value));
};

/// The board that has been read: pocket 1..4 of each card, 0 for one that was not seen.
struct BoardReply {
  static constexpr std::uint8_t Code = 0x9D;
  CardBytes Pockets;

  static constexpr auto Fields = std::tuple(Cards(8, kCards, &BoardReply::Pockets));
};

/// The how-manieth of the run each card was; 0 = not dealt.
struct CardLogReply {
  static constexpr std::uint8_t Code = 0xA0;
  CardBytes Cards;

  static constexpr auto Fields =
      std::tuple(wire::Cards(8, CardBytes::kPlaces, &CardLogReply::Cards));
};

/// Numbers for the eye of a technician, known by the byte at which they stand.
struct TestReply {
  static constexpr std::uint8_t Code = 0x9E;
  static constexpr std::size_t kFirst = 9;
  std::array<std::uint8_t, kLongFrame - kFirst> Numbers{};

  static constexpr auto Fields = std::tuple(Array(kFirst, &TestReply::Numbers));
};

/// The same frame as the service file has it: with the byte in front of those.
struct TestDataReply {
  static constexpr std::uint8_t Code = TestReply::Code;
  std::array<std::uint8_t, kLongFrame - 8> Bytes{};

  static constexpr auto Fields = std::tuple(Array(8, &TestDataReply::Bytes));
};

/// Each number with the byte at which it stands: "9 200  10 0  ".
[[nodiscard]] std::string DiagnosisText(const TestReply& reply);

/// Whether a frame of this code is the reply `R`.
template <typename R>
[[nodiscard]] constexpr bool Answers(std::uint8_t code) {
  if constexpr (requires { R::IsCode(code); }) {
    return R::IsCode(code);
  } else {
    if constexpr (requires { R::LongCode; }) {
      if (code == R::LongCode) return true;
    }
    return code == R::Code;
  }
}

}  // namespace morvane::wire
