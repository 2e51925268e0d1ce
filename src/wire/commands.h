#pragma once

#include "wire/fields.h"
#include "wire/replies.h"

// Every command's bytes stand here and nowhere else. A command names the reply that belongs to it.
// Bytes 1 to 6 that no row names are filler: the sender makes them random before `Put`.

namespace morvane::wire {

enum CommandCode : std::uint8_t {
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
};

/// Asks how the run stands; the machine reports its events in the answer. It is asked ten times a
/// second and takes its turn again soon: another good frame in the answer's place is dropped.
struct StatusCommand {
  static constexpr std::uint8_t Code = CmdStatus;
  using Reply = StatusReply;
  static constexpr bool kDropsOthers = true;

  static constexpr std::uint8_t kBreak = 1;     ///< stop the run in progress
  static constexpr std::uint8_t kPedalAck = 2;  ///< the press has been seen
  static constexpr std::uint8_t kBoxAck = 4;    ///< the insertion has been seen
  std::uint8_t Flags = 0;

  static constexpr auto Fields = std::tuple(Byte(1, &StatusCommand::Flags));
};

/// The poll of the error dialog, the one frame without random filler: byte 2 stays as it stands.
struct DialogPollCommand {
  static constexpr std::uint8_t Code = StatusCommand::Code;
  std::uint8_t Flags = 0;

  static constexpr auto Fields = std::tuple(Byte(1, &DialogPollCommand::Flags), Zeros(3, 4));
};

/// The machine, whatever it was at, is idle when it answers.
struct VersionCommand {
  static constexpr std::uint8_t Code = CmdVersion;
  using Reply = VersionReply;

  static constexpr auto Fields = std::tuple(Zeros(1));
};

struct IdentityCommand {
  static constexpr std::uint8_t Code = CmdIdentity;
  using Reply = IdentityReply;
  std::uint8_t Page = 1;  ///< 1 or 2

  static constexpr auto Fields = std::tuple(Byte(1, &IdentityCommand::Page));
};

struct CounterCommand {
  static constexpr std::uint8_t Code = CmdCounter;
  using Reply = CounterReply;
  std::uint8_t Counter = 0;  ///< 0 = boards dealt

  static constexpr auto Fields = std::tuple(Zeros(1), Byte(2, &CounterCommand::Counter));
};

struct SensorCommand {
  static constexpr std::uint8_t Code = CmdSensor;
  using Reply = SensorReply;
  static constexpr std::uint8_t kBoardLabel = 4;
  std::uint8_t Selector = kBoardLabel;

  static constexpr auto Fields = std::tuple(Byte(1, &SensorCommand::Selector), Zeros(2));
};

/// Bytes 2 to 6 of every start command: the cards that are dealt, and the rotation.
struct RunSettings {
  static constexpr std::array<std::uint8_t, 4> RotationTableA{11, 61, 111, 161};
  static constexpr std::array<std::uint8_t, 4> RotationTableB{36, 86, 136, 186};

  std::uint8_t CardConfig = 0;
  std::uint8_t DealRotation = 0;                                 ///< 0..3
  std::optional<std::uint8_t> CardConfigExtra{std::uint8_t{0}};  ///< empty: random

  static constexpr auto Fields =
      std::tuple(Byte(2, &RunSettings::CardConfig), Byte(3, &RunSettings::DealRotation, 3),
                 FromTable(4, RotationTableA, &RunSettings::DealRotation),
                 FromTable(5, RotationTableB, &RunSettings::DealRotation),
                 Byte(6, &RunSettings::CardConfigExtra));
};

/// Begins a run that deals or reads a pack, or goes on with it after an error.
struct StartCommand {
  using Reply = AcceptedReply;

  std::uint8_t Code = CmdDeal;
  bool Continue = false;
  RunSettings Settings;
  CardBytes Pockets;            ///< pocket 1..4 of each card, 0 none
  std::size_t Places = kCards;  ///< so many of `Pockets` are set, the others stay as they stand

  static constexpr auto Fields = std::tuple(
      Byte(0, &StartCommand::Code), Flag(1, &StartCommand::Continue), Part(&StartCommand::Settings),
      Cards(8, &StartCommand::Pockets, &StartCommand::Places));
};

struct SortCommand {
  static constexpr std::uint8_t Code = CmdSort;
  using Reply = AcceptedReply;
  bool Continue = false;
  RunSettings Settings;

  static constexpr auto Fields =
      std::tuple(Flag(1, &SortCommand::Continue), Part(&SortCommand::Settings));
};

/// What the machine is to expect in the next run.
struct RouteCommand {
  static constexpr std::uint8_t Code = CmdRoute;
  using Reply = AcceptedReply;
  std::uint8_t Count = 0;  ///< cards of the run
  bool TestDeal = false;
  CardBytes Order;

  static constexpr auto Fields =
      std::tuple(Byte(1, &RouteCommand::Count), Flag(2, &RouteCommand::TestDeal), Zeros(3, 3),
                 Cards(8, CardBytes::kPlaces, &RouteCommand::Order));
};

struct FetchBoardCommand {
  static constexpr std::uint8_t Code = CmdFetchBoard;
  using Reply = BoardReply;

  static constexpr auto Fields = std::tuple(Zeros(1));
};

struct FetchLogCommand {
  static constexpr std::uint8_t Code = CmdFetchLog;
  using Reply = CardLogReply;

  static constexpr auto Fields = std::tuple(Zeros(1));
};

/// The same two behind a poker run, whose bytes 2 to 5 are not random.
struct PokerFetchBoardCommand {
  static constexpr std::uint8_t Code = CmdFetchBoard;
  using Reply = BoardReply;

  static constexpr auto Fields = std::tuple(Zeros(1, 5));
};

struct PokerFetchLogCommand {
  static constexpr std::uint8_t Code = CmdFetchLog;
  using Reply = CardLogReply;

  static constexpr auto Fields = std::tuple(Zeros(1, 5));
};

/// Asks for the diagnosis text.
struct TestCommand {
  static constexpr std::uint8_t Code = CmdTest;
  using Reply = TestReply;

  static constexpr auto Fields = std::tuple<>();
};

}  // namespace morvane::wire
