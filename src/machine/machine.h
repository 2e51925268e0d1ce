#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>

#include "machine/machine_link.h"
#include "program/program.h"
#include "wire/commands.h"
#include "wire/replies.h"

namespace morvane::machine {

/// What the program knows of the machine, and the exchanges by which it learns it.
class Machine {
 public:
  enum State : std::int32_t { kNotConnected = 1, kNoVersion = 2, kIdle = 3, kBusy = 4, kError = 5 };
  /// The longest that the slot counters count, in polls.
  static constexpr std::int16_t kMostTicks = 10;
  static constexpr std::uint8_t kFreshCard = 0x63;

  Machine(Program& program, UsbXpress& usb) : Link(usb), program_(program) {}

  MachineLink Link;
  /// A procedure owns the link: no polling timer may start an exchange.
  bool PollLock = false;

  std::int32_t MachineState = kNotConnected;
  std::uint8_t MachineError = 0;  ///< the last status byte; 1..240 is an error code
  std::uint8_t PedalFlag = 0;     ///< 1 = a press is reported; 2 = to be acknowledged only
  std::uint8_t BoxFlag = 0;       ///< 1 = a board was inserted; 2 = to be acknowledged only
  std::int16_t BoxOutTicks = 0;   ///< polls since the slot was last active, held at 10
  std::int16_t BoxInTicks = 0;    ///< `BoxOutTicks` when the insertion was reported
  std::uint8_t FirmwareMajor = 0;
  std::uint8_t FirmwareMinor = 0;  ///< packed decimal: 0x27 is shown as 27
  std::uint8_t BootMajor = 0;
  std::uint8_t BootMinor = 0;
  std::int16_t MachineFlash = 0;
  bool VersionSeen = false;
  std::uint32_t HardwareId = 0;  ///< bits of `IdentityReply`
  std::uint32_t SerialNumber = 0;
  std::uint32_t BoardsDealt = 0;
  std::uint8_t BoardNumberRead = 0;  ///< 0 = the label is not valid
  std::uint8_t BoardNumberRaw = 0;
  std::array<std::uint8_t, 56> CardLog{};   ///< [1..52] in the wire's order; 0 = not dealt
  std::array<std::int16_t, 5> CardCount{};  ///< [pocket 1..4]
  std::string TestText;

  /// Sends `command` and takes its reply, with one retry that has filler of its own. False when
  /// both tries were bad: the link is lost. With `onlyCode`, any other good reply counts as bad.
  /// A read board is taken with its `onlyCode` only, since it changes the set.
  template <typename Command>
  bool Exchange(const Command& command, std::optional<std::uint8_t> onlyCode = std::nullopt) {
    BeginExchange();
    for (int attempt = 1; attempt <= kTries; ++attempt) {
      FillRandom();
      command.Put(Link.TxFrame);
      Link.SendFrame();
      if (ProcessRunReply(onlyCode)) return true;
      EndTry(attempt);
    }
    return false;
  }

  /// `StatusCommand` with the flags that acknowledge pedal and board.
  [[nodiscard]] StatusCommand Poll() const;
  /// A reply may still be on its way: the next exchange flushes the link before it sends.
  void ExpectLateReply() { lateReply_ = true; }
  /// Asks for the version; the machine, whatever it was at, is idle when it answers.
  bool VersionProbe();
  /// Both tries of the last exchange were bad.
  [[nodiscard]] bool Lost() const { return Link.CommErrorCount >= kTries; }

  /// Before each board every card counts as dealt, so that the whole board shows in full colour.
  void ClearCardLog();
  /// What a status reply says of pedal and slot.
  void TakePedalAndBox(const StatusReply& reply);
  /// "2.90".
  [[nodiscard]] std::string FirmwareVersion() const;
  [[nodiscard]] bool HasHardware(std::uint16_t bit) const { return (HardwareId & bit) != 0; }

 private:
  static constexpr int kTries = 2;

  void BeginExchange();
  void EndTry(int attempt);
  void FillRandom();
  bool ProcessRunReply(std::optional<std::uint8_t> onlyCode);
  void TakeReply(const Frame& frame);
  void TakeStatus(const StatusReply& reply);
  void TakeSensor(const SensorReply& reply);
  void TakeBoard(const BoardReply& reply);
  void TakeIdentity(const IdentityReply& reply);
  void TakeVersion(const VersionReply& reply);
  void TakeTest(const Frame& frame);

  Program& program_;
  bool lateReply_ = false;
};

/// The machine's own event numbers, kept as a list; empty where it has none.
extern const std::array<std::string_view, 47> MachineMessageText;

}  // namespace morvane::machine
