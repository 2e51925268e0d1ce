#pragma once

#include "wire/parameters.h"
#include "wire/replies.h"

// The replies to service_commands.h, in the manner of replies.h.

namespace morvane::wire {

template <typename Block>
struct ParametersReply {
  static constexpr std::uint8_t Code = 0x11;
  std::uint8_t SubCode = 0;
  Block Values;

  static constexpr auto Fields =
      std::tuple(Byte(1, &ParametersReply::SubCode), Part(&ParametersReply::Values));
};

/// What the photo sensors measure, and which of the switches are set.
struct PhotoReply {
  static constexpr std::uint8_t Code = 0x17;
  static constexpr std::uint8_t kFrontSwitch = 0x20;
  static constexpr std::uint8_t kCoverSwitch = 0x40;
  static constexpr std::uint8_t kBoxSwitch = 0x80;
  /// Whether photo sensor 1..5 sees something.
  [[nodiscard]] static constexpr std::uint8_t PhotoBit(std::size_t sensor) {
    return static_cast<std::uint8_t>(1U << (sensor - 1));
  }

  std::array<std::uint8_t, 6> Photo{};  ///< [1..5]
  std::uint8_t Switches = 0;

  static constexpr auto Fields =
      std::tuple(Array(1, &PhotoReply::Photo, 1), Byte(6, &PhotoReply::Switches));
};

/// What every answer to a status frame begins with.
struct SensorHead {
  std::uint8_t Selector = 0;  ///< 0..63
  bool FlipPlate = false;     ///< the switch of the flip plate

  static constexpr auto Fields =
      std::tuple(Byte(1, &SensorHead::Selector, 0x3F), Bit(1, 7, &SensorHead::FlipPlate));
};

/// An answer of which nothing else is read.
struct SpareSensorReply {
  static constexpr std::uint8_t Code = SensorReply::Code;
  SensorHead Head;

  static constexpr auto Fields = std::tuple(Part(&SpareSensorReply::Head));
};

/// Selector 0: motors 1 and 2; selector 1: motors 3 and 4.
struct MotorReply {
  static constexpr std::uint8_t Code = SensorReply::Code;
  static constexpr std::uint16_t kStill = 32767;  ///< less the speed
  SensorHead Head;
  std::uint16_t First = kStill;
  std::uint16_t Second = kStill;

  static constexpr auto Fields = std::tuple(Part(&MotorReply::Head), Measure(2, &MotorReply::First),
                                            Measure(4, &MotorReply::Second));
};

/// Selector 2, in the steps of the machine's converter.
struct ClimateReply {
  static constexpr std::uint8_t Code = SensorReply::Code;
  SensorHead Head;
  std::uint16_t Temperature = 0;
  std::uint16_t Supply = 0;

  static constexpr auto Fields =
      std::tuple(Part(&ClimateReply::Head), Measure(2, &ClimateReply::Temperature),
                 Measure(4, &ClimateReply::Supply));
};

/// Selector 4.
struct LabelReply {
  static constexpr std::uint8_t Code = SensorReply::Code;
  SensorHead Head;
  std::uint8_t Label = 0;  ///< the raw byte

  static constexpr auto Fields = std::tuple(Part(&LabelReply::Head), Byte(2, &LabelReply::Label));
};

/// Selector 5.
struct BoardSensorReply {
  static constexpr std::uint8_t Code = SensorReply::Code;
  SensorHead Head;
  std::uint8_t Seen = 0;  ///< 1: there is a board

  static constexpr auto Fields =
      std::tuple(Part(&BoardSensorReply::Head), Byte(2, &BoardSensorReply::Seen));
};

struct LogicVersionReply {
  static constexpr std::uint8_t Code = 0x23;
  std::uint8_t Version = 0;  ///< 37 is shown as 3.7

  static constexpr auto Fields = std::tuple(Byte(1, &LogicVersionReply::Version));
};

/// The stored data of the boot area.
struct BootAreaReply {
  static constexpr std::uint8_t Code = 0xB2;
  std::uint8_t Area = 0;
  std::uint8_t BootMajor = 0;
  std::uint8_t BootMinor = 0;

  static constexpr auto Fields =
      std::tuple(Byte(2, &BootAreaReply::Area), Byte(40, &BootAreaReply::BootMajor),
                 Byte(41, &BootAreaReply::BootMinor));
};

struct SetIdentityReply {
  static constexpr std::uint8_t Code = BootAreaReply::Code;
  std::uint8_t Area = 0;
  std::array<std::uint8_t, 8> Identity{};

  static constexpr auto Fields =
      std::tuple(Byte(2, &SetIdentityReply::Area), Spaced(18, 10, &SetIdentityReply::Identity));
};

struct DieIdentityReply {
  static constexpr std::uint8_t Code = 0x14;
  std::uint8_t Half = 0;
  std::array<std::uint8_t, 4> Identity{};

  static constexpr auto Fields =
      std::tuple(Byte(1, &DieIdentityReply::Half), Array(2, &DieIdentityReply::Identity));
};

/// 32 counters, the first of page 0 being the boards dealt.
struct CounterPageReply {
  static constexpr std::uint8_t Code = CounterReply::Code;
  static constexpr std::size_t kCounters = 32;
  std::uint8_t Page = 0;
  std::array<std::uint32_t, kCounters> Counters{};

  static constexpr auto Fields =
      std::tuple(Byte(2, &CounterPageReply::Page), Numbers(8, &CounterPageReply::Counters));
};

/// What the machine took a card for.
struct VerdictReply {
  static constexpr std::uint8_t Code = 0x15;
  std::uint16_t Time = 0;      ///< that it took
  std::uint8_t Rank = 0;       ///< 2..14, the ace being 14
  std::uint8_t Suit = 0;       ///< 1 spades, 2 hearts, 3 diamonds, 4 clubs
  std::uint8_t Threshold = 0;  ///< with which it looked for the symbol
  std::uint8_t Error = 0;      ///< 0: it is a card

  static constexpr auto Fields = std::tuple(
      Number(1, &VerdictReply::Time), Byte(3, &VerdictReply::Rank), Byte(4, &VerdictReply::Suit),
      Byte(5, &VerdictReply::Threshold), Byte(6, &VerdictReply::Error));
};

}  // namespace morvane::wire
