#pragma once

#include <cstdint>
#include <limits>
#include <vector>

namespace morvane::simulator {

/// What happens to one exchange on its way.
struct LinkFault {
  enum class Kind : std::uint8_t {
    None,
    LoseCommand,     ///< the machine never hears it
    CorruptCommand,  ///< byte `Place` of the wire image is xor-ed with `Mask`
    LoseReply,       ///< the machine has obeyed; its answer gets lost
    CorruptReply,    ///< as CorruptCommand
    CutReply,        ///< only the first `Place` bytes arrive
    LateReply,       ///< arrives after the read has timed out and flushed, ahead of the next reply
    ShiftReply,      ///< a stray byte comes first
    ReplaceCode,     ///< a good frame with code `Place` in place of the reply's own
  };
  Kind What = Kind::None;
  std::uint8_t Place = 0;
  std::uint8_t Mask = 0x10;

  static LinkFault LoseCommand() { return {Kind::LoseCommand}; }
  static LinkFault CorruptCommand(std::uint8_t byte = 3, std::uint8_t mask = 0x10) {
    return {Kind::CorruptCommand, byte, mask};
  }
  static LinkFault LoseReply() { return {Kind::LoseReply}; }
  static LinkFault CorruptReply(std::uint8_t byte = 3, std::uint8_t mask = 0x10) {
    return {Kind::CorruptReply, byte, mask};
  }
  static LinkFault CutReply(std::uint8_t kept) { return {Kind::CutReply, kept}; }
  static LinkFault LateReply() { return {Kind::LateReply}; }
  static LinkFault ShiftReply() { return {Kind::ShiftReply}; }
  static LinkFault ReplaceCode(std::uint8_t code) { return {Kind::ReplaceCode, code}; }
};

/// Which exchanges go wrong, and how. An exchange is a command that reaches the machine's end of
/// the line; a repeated one is an exchange of its own. Counts start at 1, that of exchanges with
/// the machine and that of a command's occurrences with the request.
class FaultPlan {
 public:
  void AtExchange(int exchange, LinkFault fault);
  /// At the `occurrence`-th command with this code; one that fails its check has no code.
  void AtCommand(std::uint8_t code, int occurrence, LinkFault fault);
  /// From this exchange on the line is dead.
  void SilentFrom(int exchange) { silentFrom_ = exchange; }
  void SilentFromNow() { SilentFrom(exchanges_ + 1); }
  /// Nothing goes wrong any more; the count of exchanges goes on.
  void Clear();

  [[nodiscard]] int Exchanges() const { return exchanges_; }

  /// Counts one exchange and says what happens to it. `code` is below 0 for a bad command.
  LinkFault Next(int code);

 private:
  static constexpr int kAnyCode = -2;
  struct Entry {
    int Code;
    int Countdown;
    LinkFault Fault;
  };
  std::vector<Entry> entries_;
  int exchanges_ = 0;
  int silentFrom_ = std::numeric_limits<int>::max();
};

}  // namespace morvane::simulator
