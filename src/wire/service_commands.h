#pragma once

#include "wire/commands.h"
#include "wire/parameters.h"
#include "wire/service_replies.h"

// The commands of the machine's service, in the manner of commands.h. One without a `Reply` writes:
// its sender does not wait for an answer. `IsEchoedBy` tells its reply from one to the same command
// with other bytes.

namespace morvane::wire {

enum ServiceCode : std::uint8_t {
  CmdReadParameters = 0x11,
  CmdWriteParameters = 0x13,
  CmdDieIdentity = 0x14,
  CmdOutputs = 0x17,
  CmdLogicVersion = 0x23,
  CmdTestWrite = 0x24,
  CmdStoredData = 0x32,
  CmdSetCounter = 0x34,
};

/// Asks for one block; `Block` is what the answer has behind its sub-code.
template <typename Block>
struct ReadParametersCommand {
  static constexpr std::uint8_t Code = CmdReadParameters;
  using Reply = ParametersReply<Block>;
  std::uint8_t SubCode = 0;
  [[nodiscard]] bool IsEchoedBy(const Reply& reply) const { return reply.SubCode == SubCode; }

  static constexpr auto Fields = std::tuple(Byte(1, &ReadParametersCommand::SubCode));
};

template <typename Block>
struct WriteParametersCommand {
  static constexpr std::uint8_t Code = CmdWriteParameters;
  std::uint8_t SubCode = 0;
  Block Values;

  static constexpr auto Fields =
      std::tuple(Byte(1, &WriteParametersCommand::SubCode), Part(&WriteParametersCommand::Values));
};

/// The sub-code of a frame that reads or writes any block.
[[nodiscard]] inline std::uint8_t SubCodeIn(const Frame& command) {
  return Get<ReadParametersCommand<VideoBlock>>(command).SubCode;
}

template <typename Block>
[[nodiscard]] constexpr ReadParametersCommand<Block> ReadBlock(CardIndex index) {
  return {SubCodeOf<Block>(index)};
}
template <typename Block>
[[nodiscard]] constexpr WriteParametersCommand<Block> WriteBlock(CardIndex index,
                                                                 const Block& values) {
  return {SubCodeOf<Block>(index), values};
}

/// Switches motors, gates and lights, and asks what the sensors see.
struct OutputsCommand {
  static constexpr std::uint8_t Code = CmdOutputs;
  using Reply = PhotoReply;
  /// What the machine says of the card that it was to feed may be all its answer. Asked again, it
  /// would feed another.
  static constexpr bool kAnotherWillDo = true;
  static constexpr std::uint8_t kMotors = 1;
  static constexpr std::uint8_t kGate1 = 2;
  static constexpr std::uint8_t kGate2 = 4;
  static constexpr std::uint8_t kGate3 = 8;
  static constexpr std::uint8_t kCamLeds = 16;
  static constexpr std::uint8_t kCamPower = 32;
  static constexpr std::uint8_t kFrontGreenLed = 64;
  static constexpr std::uint8_t kFrontRedLed = 128;

  std::uint8_t Outputs = 0;
  bool Feed = false;  ///< move one card past the camera

  static constexpr auto Fields =
      std::tuple(Byte(1, &OutputsCommand::Outputs), Flag(2, &OutputsCommand::Feed));
};

/// A status frame, by what its selector makes of the answer.
template <typename R>
struct SensorStatusCommand {
  static constexpr std::uint8_t Code = CmdSensor;
  using Reply = R;
  std::uint8_t Selector = 0;

  static constexpr auto Fields = std::tuple(Byte(1, &SensorStatusCommand::Selector), Zeros(2));
};

inline constexpr SensorStatusCommand<MotorReply> kMotors1And2{0};
inline constexpr SensorStatusCommand<MotorReply> kMotors3And4{1};
inline constexpr SensorStatusCommand<ClimateReply> kClimate{2};
inline constexpr SensorStatusCommand<SpareSensorReply> kSpareSensor{3};
inline constexpr SensorStatusCommand<LabelReply> kLabelSensor{SensorCommand::kBoardLabel};

/// Whether the board switch sees a board: a status frame of its own form.
struct BoardSensorCommand {
  static constexpr std::uint8_t Code = CmdSensor;
  using Reply = BoardSensorReply;
  static constexpr std::uint8_t kSelector = 5;
  [[nodiscard]] bool IsEchoedBy(const Reply& reply) const {
    return reply.Head.Selector == kSelector;
  }

  static constexpr auto Fields = std::tuple(Always(1, kSelector), Zeros(2, 5));
};

/// As `VersionCommand`, but all filler: that is how the service asks for it.
struct ServiceVersionCommand {
  static constexpr std::uint8_t Code = CmdVersion;
  using Reply = VersionReply;

  static constexpr auto Fields = std::tuple<>();
};

/// As `IdentityCommand`, but with byte 2 clear.
struct ServiceIdentityCommand {
  static constexpr std::uint8_t Code = CmdIdentity;
  using Reply = IdentityReply;
  std::uint8_t Page = 1;  ///< 1 or 2
  [[nodiscard]] bool IsEchoedBy(const Reply& reply) const { return reply.Page == Page; }

  static constexpr auto Fields = std::tuple(Byte(1, &ServiceIdentityCommand::Page), Zeros(2));
};

struct CounterPageCommand {
  static constexpr std::uint8_t Code = CmdCounter;
  using Reply = CounterPageReply;
  static constexpr std::uint8_t kPages = 8;
  std::uint8_t Page = 0;
  [[nodiscard]] bool IsEchoedBy(const Reply& reply) const { return reply.Page == Page; }

  static constexpr auto Fields = std::tuple(Zeros(1), Byte(2, &CounterPageCommand::Page));
};

struct BootAreaCommand {
  static constexpr std::uint8_t Code = CmdStoredData;
  using Reply = BootAreaReply;

  static constexpr auto Fields = std::tuple(Zeros(1, 6));
};

/// The identity of the set, spread over another area of the stored data.
struct SetIdentityCommand {
  static constexpr std::uint8_t Code = CmdStoredData;
  using Reply = SetIdentityReply;
  static constexpr std::uint8_t kArea = 0xE0;
  [[nodiscard]] bool IsEchoedBy(const Reply& reply) const { return reply.Area == kArea; }

  static constexpr auto Fields = std::tuple(Zeros(1), Always(2, kArea), Zeros(3, 4));
};

/// One half of the processor's identity.
struct DieIdentityCommand {
  static constexpr std::uint8_t Code = CmdDieIdentity;
  using Reply = DieIdentityReply;
  std::uint8_t Half = 1;  ///< 1 or 2
  [[nodiscard]] bool IsEchoedBy(const Reply& reply) const { return reply.Half == Half; }

  static constexpr auto Fields = std::tuple(Byte(1, &DieIdentityCommand::Half), Zeros(2, 5));
};

/// `TestCommand` for all that it tells.
struct TestDataCommand {
  static constexpr std::uint8_t Code = CmdTest;
  using Reply = TestDataReply;

  static constexpr auto Fields = std::tuple<>();
};

/// `StatusCommand` as a test deal polls: only the break counts, all else is random.
struct TestPollCommand {
  static constexpr std::uint8_t Code = CmdStatus;
  using Reply = StatusReply;
  bool Break = false;

  static constexpr auto Fields = std::tuple(Bit(1, 0, &TestPollCommand::Break));
};

/// The version of the programmable logic.
struct LogicVersionCommand {
  static constexpr std::uint8_t Code = CmdLogicVersion;
  using Reply = LogicVersionReply;

  static constexpr auto Fields = std::tuple(Zeros(1, 6));
};

/// Two numbers of a developer's.
struct TestWriteCommand {
  static constexpr std::uint8_t Code = CmdTestWrite;
  std::uint8_t First = 0;
  std::uint8_t Second = 0;

  static constexpr auto Fields = std::tuple(Byte(1, &TestWriteCommand::First),
                                            Byte(2, &TestWriteCommand::Second), Zeros(3, 4));
};

/// Sets the counter of dealt boards.
struct SetCounterCommand {
  static constexpr std::uint8_t Code = CmdSetCounter;
  std::uint32_t Boards = 0;

  static constexpr auto Fields =
      std::tuple(Zeros(1), Number(2, &SetCounterCommand::Boards), Always(6, 0x63));
};

}  // namespace morvane::wire
