#pragma once

#include <array>
#include <cstdint>

#include "model/tables.h"
#include "wire/frame.h"

// Every command's bytes stand here and nowhere else: `Put` writes them into a frame, `Get` reads
// them. Bytes 1 to 6 of a command that no row names are filler, which the sender fills with random
// bytes before `Put`. Bytes of a long frame that no row names keep what the frame held before.

namespace morvane::machine {

enum Command : std::uint8_t {
  // A dealing, reading or sorting run.
  CmdIdentity = 0x12,
  CmdStatus = 0x19,
  CmdVersion = 0x1A,
  CmdSensor = 0x1B,
  CmdFetchBoard = 0x1D,
  CmdTest = 0x1E,
  CmdFetchLog = 0x20,
  CmdCounter = 0x33,
  CmdSort = 0x35,
  CmdDeal = 0x98,
  CmdRead = 0x9C,
  CmdRoute = 0x9F,
  // The maintenance side.
  CmdPictureLine = 0x01,
  CmdErrorPictureLine = 0x02,
  CmdCapture = 0x0A,
  CmdMeasureSymbol = 0x0F,
  CmdMeasureSuit = 0x10,
  CmdReadParameters = 0x11,
  CmdWriteParameters = 0x13,
  CmdChipIdentity = 0x14,
  CmdRecognise = 0x15,
  CmdSensors = 0x17,
  CmdRecogniseAt = 0x22,
  CmdLogicVersion = 0x23,
  CmdFactoryTest = 0x24,
  CmdErrorVerdict = 0x25,
  CmdStartDownload = 0x29,
  CmdFirmwareBlock = 0xAA,
  CmdStartBoot = 0x2B,
  CmdStartLogic = 0x2C,
  CmdLogicBlock = 0xAD,
  CmdFetchStored = 0x32,
  CmdWriteCounter = 0x34,
};

/// Codes of replies that are not their command's own.
enum Reply : std::uint8_t {
  kReplyAccepted = 0x18,  ///< a start command was taken
  kReplyStatusLong = 0x9C,
  kReplyBoard = 0x9D,
  kReplyTest = 0x9E,
  kReplyCardLog = 0xA0,
  kReplyCounter = 0xB3,
};

/// A pocket 1..4 (0 none) for each card, in the wire's order: element 0 is the Two of Spades.
using HandList = std::array<std::uint8_t, kCards>;

/// The byte of card 1..52 in a long frame: four blocks of 13 from byte 8, Spades to Clubs, each
/// from the Two up to the Ace. Byte 8 is the Two of Spades, byte 59 the Ace of Clubs.
[[nodiscard]] constexpr std::size_t WirePosition(int card) {
  return static_cast<std::size_t>(8 + kRanks * CardSuit(card) - RankPosition(card));
}

/// 0x19. Byte 1: flags. The machine answers with `StatusReply`.
struct StatusCommand {
  static constexpr std::uint8_t kBreak = 1;     ///< stop the run in progress
  static constexpr std::uint8_t kPedalAck = 2;  ///< the press has been seen
  static constexpr std::uint8_t kBoxAck = 4;    ///< the insertion has been seen
  std::uint8_t Flags = 0;
  void Put(Frame& frame) const;
  [[nodiscard]] static StatusCommand Get(const Frame& frame);
};

/// 0x1A. Byte 1: 0.
struct VersionCommand {
  void Put(Frame& frame) const;
};

/// 0x12. Byte 1: page 1 or 2.
struct IdentityCommand {
  std::uint8_t Page = 1;
  void Put(Frame& frame) const;
  [[nodiscard]] static IdentityCommand Get(const Frame& frame);
};

/// 0x33. Byte 1: 0, byte 2: counter, 0 = boards dealt.
struct CounterCommand {
  std::uint8_t Counter = 0;
  void Put(Frame& frame) const;
  [[nodiscard]] static CounterCommand Get(const Frame& frame);
};

/// 0x1B. Byte 1: selector, byte 2: 0.
struct SensorCommand {
  static constexpr std::uint8_t kBoardLabel = 4;
  std::uint8_t Selector = kBoardLabel;
  void Put(Frame& frame) const;
  [[nodiscard]] static SensorCommand Get(const Frame& frame);
};

/// Bytes 2 to 6 of every start command: 2 card settings, 3 rotation 0..3, 4 and 5 the rotation's
/// table entries, 6 further card settings.
struct RunSettings {
  std::uint8_t CardConfig = 0;
  std::uint8_t DealRotation = 0;
  std::uint8_t CardConfigExtra = 0;

  static constexpr std::array<std::uint8_t, 4> RotationTableA{11, 61, 111, 161};
  static constexpr std::array<std::uint8_t, 4> RotationTableB{36, 86, 136, 186};
  void Put(Frame& frame) const;
  [[nodiscard]] static RunSettings Get(const Frame& frame);
};

/// 0x98 and 0x9C. Byte 1: 0 = begin, 1 = go on after an error; bytes 2 to 6: settings; bytes 8 to
/// 59: the hand list.
struct StartCommand {
  std::uint8_t Code = CmdDeal;
  bool Continue = false;
  RunSettings Settings;
  HandList Pockets{};
  void Put(Frame& frame) const;
  [[nodiscard]] static StartCommand Get(const Frame& frame);
};

/// 0x35. Byte 1: 0 = start, 1 = go on; bytes 2 to 6: settings.
struct SortCommand {
  bool Continue = false;
  RunSettings Settings;
  void Put(Frame& frame) const;
  [[nodiscard]] static SortCommand Get(const Frame& frame);
};

/// 0x9F. Byte 1: number of cards, byte 2: 1 in a test deal, bytes 3 to 5: 0, bytes 8 to 62: the
/// expected order.
struct RouteCommand {
  std::uint8_t Cards = 0;
  bool TestDeal = false;
  std::array<std::uint8_t, 55> Order{};
  void Put(Frame& frame) const;
};

/// 0x1D and 0x20. Byte 1: 0.
struct FetchCommand {
  std::uint8_t Code = CmdFetchLog;
  void Put(Frame& frame) const;
};

/// 0x1E. Filler only.
struct TestCommand {
  void Put(Frame& frame) const;
};

}  // namespace morvane::machine
