#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "machine/machine_link.h"
#include "platform/entropy.h"
#include "wire/commands.h"

namespace morvane::machine {

/// Who deals: a machine with cards in it, one made of code, or one that another run has been noted
/// of.
enum class MachineKind : std::uint8_t { kReal, kSimulated, kReplayed };

/// "simulated" or "replayed"; empty where cards fall.
[[nodiscard]] std::string_view WordOf(MachineKind kind);

/// "2.7F", of the bytes 02 and 7F.
[[nodiscard]] std::string VersionInHex(std::uint8_t major, std::uint8_t minor);

/// What the polls and the first contact tell of the machine, and the exchange by which anything is
/// learnt from it.
class Machine {
 public:
  enum State : std::int32_t { kNotConnected = 1, kNoVersion = 2, kIdle = 3, kBusy = 4, kError = 5 };
  /// The longest that the slot counters count, in polls.
  static constexpr std::int16_t kMostTicks = 10;

  /// `random` is the source of the frames' filler.
  Machine(Entropy& random, UsbXpress& usb, MachineKind kind = MachineKind::kReal)
      : Link(usb), random_(random), kind_(kind) {}

  [[nodiscard]] MachineKind Kind() const { return kind_; }
  /// " - Simulated machine", for the title of a window that drives it; empty where cards fall.
  [[nodiscard]] std::string TitleMark() const;

  MachineLink Link;
  /// A procedure owns the link: no polling timer may start an exchange.
  bool PollLock = false;

  std::int32_t MachineState = kNotConnected;
  std::uint8_t MachineError = 0;  ///< the last status byte; 1..240 is an error code
  std::uint8_t PedalFlag = 0;     ///< 1 = a press is reported; 2 = to be acknowledged only
  std::uint8_t BoxFlag = 0;       ///< 1 = a board was inserted; 2 = to be acknowledged only
  std::int16_t BoxOutTicks = 0;   ///< polls since the slot was last active, held at 10
  std::int16_t BoxInTicks = 0;    ///< `BoxOutTicks` when the insertion was reported
  std::array<std::int16_t, 5> CardCount{};  ///< [pocket 1..4], as the polls of a run report them

  /// A press or a board that came behind a box is acknowledged and starts nothing.
  void ForgetStarts();

  /// Taken from the version and identity replies; all 0 before.
  wire::VersionReply Version;
  std::uint32_t HardwareId = 0;  ///< bits of `IdentityReply`
  std::uint32_t SerialNumber = 0;
  /// Forgets the hardware of another machine than the one that the link is open to. A machine
  /// without firmware cannot be asked for it.
  void ForgetAnother();

  /// Hears of a good frame that came in the place of a reply. True: nobody has asked for it, the
  /// reply comes behind it.
  std::function<bool(const wire::Frame&)> OnUnasked;

  /// Sends `command` and takes its reply, with one retry that has filler of its own. Nothing when
  /// both tries were bad (`Lost`), or when a command that allows it was answered by another frame
  /// (`kDropsOthers`: by any; `kAnotherWillDo`: by one for `OnUnasked`, and silence behind it).
  template <typename Command>
  std::optional<typename Command::Reply> Exchange(const Command& command) {
    return Exchange(command, [] {});
  }
  /// `meanwhile` is done while the frame is on its way and the machine thinks, once a try; it must
  /// let no events through.
  template <typename Command, typename Meanwhile>
  std::optional<typename Command::Reply> Exchange(const Command& command, Meanwhile meanwhile) {
    return Exchange(command, meanwhile, [](MachineLink::Receive) {});
  }
  /// `badTry` hears of each try that was bad, with what was received, before the next one.
  template <typename Command, typename Meanwhile, typename BadTry>
  std::optional<typename Command::Reply> Exchange(const Command& command, Meanwhile meanwhile,
                                                  BadTry badTry) {
    using Reply = typename Command::Reply;
    BeginExchange();
    for (int attempt = 1; attempt <= kTries; ++attempt) {
      FillRandom(wire::Filler(Link.TxFrame));
      if constexpr (requires { requires Command::kRandomPayload; }) {
        FillRandom(wire::Payload(Link.TxFrame));
      }
      wire::Put(command, Link.TxFrame);
      Link.SendFrame();
      meanwhile();
      Link.ReceiveFrame();
      const bool another = CameAnother(command);
      if (another) Link.ReceiveFrame();
      if (Link.RxStatus == MachineLink::kGood) {
        if (IsReplyTo(command)) {
          const auto reply = wire::Get<Reply>(Link.RxFrame);
          Take(reply);
          return reply;
        }
        if constexpr (requires { requires Command::kDropsOthers; }) return std::nullopt;
        Link.FlushLink();
      } else if constexpr (requires { requires Command::kAnotherWillDo; }) {
        if (another) return Forgiven<Reply>();
      }
      badTry(Link.RxStatus);
      EndTry(attempt);
    }
    return std::nullopt;
  }
  /// Sends a command that has no reply. A machine that answers it all the same does no harm: the
  /// next exchange forgets that first.
  template <typename Command>
  void Tell(const Command& command) {
    BeginExchange();
    FillRandom(wire::Filler(Link.TxFrame));
    wire::Put(command, Link.TxFrame);
    Link.SendFrame();
    told_ = true;
  }
  /// Both tries of the last exchange were bad.
  [[nodiscard]] bool Lost() const { return Link.CommErrorCount >= kTries; }
  /// A reply may still be on its way: the next exchange flushes the link before it sends.
  void ExpectLateReply() { lateReply_ = true; }

  /// `StatusCommand` with the flags that acknowledge pedal and board.
  [[nodiscard]] wire::StatusCommand Poll() const;
  /// Asks for the version; the machine, whatever it was at, is idle when it answers.
  bool VersionProbe();
  /// What a status reply says of pedal and slot.
  void TakePedalAndBox(const wire::StatusReply& reply);

  /// "2.90".
  [[nodiscard]] std::string FirmwareVersion() const;
  /// The same as the service has it, each digit in hexadecimal: "2.7F".
  [[nodiscard]] std::string FirmwareInHex() const {
    return VersionInHex(Version.FirmwareMajor, Version.FirmwareMinor);
  }
  [[nodiscard]] bool HasHardware(std::uint16_t bit) const { return (HardwareId & bit) != 0; }

 private:
  static constexpr int kTries = 2;

  void BeginExchange();
  /// A command whose reply says what it answers knows it by that too.
  template <typename Command>
  [[nodiscard]] bool IsReplyTo(const Command& command) const {
    using Reply = typename Command::Reply;
    if (!wire::Answers<Reply>(wire::CodeOf(Link.RxFrame))) return false;
    if constexpr (requires(const Reply& reply) { command.IsEchoedBy(reply); }) {
      return command.IsEchoedBy(wire::Get<Reply>(Link.RxFrame));
    }
    return true;
  }
  /// A good frame that the reply comes behind: one that nobody has asked for, or the second reply
  /// to a question that had to be repeated.
  template <typename Command>
  [[nodiscard]] bool CameAnother(const Command& command) const {
    if (Link.RxStatus != MachineLink::kGood || IsReplyTo(command)) return false;
    return wire::Answers<typename Command::Reply>(wire::CodeOf(Link.RxFrame)) ||
           (OnUnasked && OnUnasked(Link.RxFrame));
  }
  /// The machine has spoken: the silence behind it is no bad try.
  template <typename Reply>
  std::optional<Reply> Forgiven() {
    Link.CommErrorCount = 0;
    ExpectLateReply();
    return std::nullopt;
  }
  void EndTry(int attempt);
  void FillRandom(std::span<std::uint8_t> bytes);

  // What is kept here of a reply; all else is the caller's.
  template <typename Reply>
  void Take(const Reply& /*reply*/) {}
  void Take(const wire::AcceptedReply& /*reply*/) { MachineState = kBusy; }
  void Take(const wire::StatusReply& reply);
  void Take(const wire::VersionReply& reply) { Version = reply; }
  void Take(const wire::IdentityReply& reply);

  Entropy& random_;
  MachineKind kind_;
  std::string identified_;  ///< the product string of the machine whose `HardwareId` it is
  bool lateReply_ = false;
  bool told_ = false;  ///< what is received before the next exchange belongs to none
};

/// `MachineState` in words: "Idle", "Busy" ...
[[nodiscard]] std::string StatusText(std::int32_t machineState);

/// Keeps every polling timer off the link for as long as it lives: while a box lets events through,
/// the pedal must not start a board behind it.
class LinkHold {
 public:
  explicit LinkHold(Machine& machine) : machine_(machine), before_(machine.PollLock) {
    machine_.PollLock = true;
  }
  ~LinkHold() { machine_.PollLock = before_; }
  LinkHold(const LinkHold&) = delete;
  LinkHold& operator=(const LinkHold&) = delete;

 private:
  Machine& machine_;
  bool before_;
};

}  // namespace morvane::machine
