#pragma once

#include <algorithm>
#include <array>
#include <deque>
#include <functional>
#include <set>

#include "support/scripted_bridge.h"

namespace morvane::test {

/// A machine of a few lines that answers a run byte for byte as the tables on paper have it. It
/// knows no cards: a board takes `BusyPolls` polls, then comes the next of `Codes`, or idle.
class PaperMachine {
 public:
  explicit PaperMachine(ScriptedBridge& bridge) {
    bridge.Answer = [this](const Bytes& plain) {
      if (OnCommand) OnCommand(plain);
      const Bytes reply = Reply(plain);
      const Bytes wire = reply.empty() ? Bytes{} : OnTheWire(reply, 21);
      return Damage ? Damage(Exchanges++, plain, wire) : wire;
    };
  }

  bool Powered = true;
  std::uint8_t Major = 2;
  std::uint8_t Minor = 0x90;
  std::uint8_t Hardware = 0x0C;
  std::uint8_t Label = 0;
  std::uint8_t Events = 0;  ///< byte 6 of the next status replies; acknowledged bits go
  int BusyPolls = 3;
  std::deque<std::uint8_t> Codes;       ///< how the coming stretches end; none left: idle
  std::set<std::uint8_t> Deaf;          ///< commands that get no answer
  std::uint8_t FinalCount = 13;         ///< the cards in each pocket when it is idle
  std::array<std::uint8_t, 52> Read{};  ///< the pockets of a board that was read, in wire order
  std::size_t CardsLogged = 52;         ///< the first so many cards stand in the card log as dealt
  std::function<void(const Bytes& plain)> OnCommand;  ///< before it is answered
  /// Spoils the wire bytes of reply number n (from 0).
  std::function<Bytes(int n, const Bytes& plain, Bytes wire)> Damage;
  int Exchanges = 0;

  /// Switched off and on again: it knows of no run.
  void Restart() {
    busy_ = 0;
    code_ = 0;
  }

 private:
  Bytes Reply(const Bytes& plain) {
    if (!Powered || Deaf.contains(plain[0])) return {};
    switch (plain[0]) {
      case 0x1A:
        busy_ = 0;
        code_ = 0;
        return Short({0x1A, Major, Minor, 1, 0, 0});
      case 0x12:
        return plain[1] == 1 ? Short({0x12, 1, 0x12, 0x67, 0, Hardware})
                             : Short({0x12, 2, 3, 4, 7, 0xEA});
      case 0x33:
        return Long({0xB3, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1, 2});
      case 0x1B:
        return Short({0x1B, 4, Label});
      case 0x1D:
        return BoardRead();
      case 0x35:
      case 0x98:
      case 0x9C:
        busy_ = BusyPolls;
        code_ = 0;
        return Short({0x18});
      case 0x19:
        return Status(plain[1]);
      case 0x20:
        return CardLog();
      default:
        return {};
    }
  }

  Bytes Status(std::uint8_t flags) {
    if ((flags & 2) != 0) Events = static_cast<std::uint8_t>(Events & ~8);
    if ((flags & 4) != 0) Events = static_cast<std::uint8_t>(Events & ~16);
    if ((flags & 1) != 0 && busy_ > 0) {
      busy_ = 0;
      code_ = 57;
    } else if (busy_ > 0 && --busy_ == 0 && !Codes.empty()) {
      code_ = Codes.front();
      Codes.pop_front();
    }
    const std::uint8_t state = busy_ > 0 ? 0xFF : code_;
    const std::uint8_t count = state == 0 ? FinalCount : std::uint8_t{5};
    return Short({0x19, state, count, count, count, count, Events});
  }

  [[nodiscard]] Bytes BoardRead() const {
    Bytes board = Long({0x9D});
    std::copy(Read.begin(), Read.end(), board.begin() + 8);
    return board;
  }

  [[nodiscard]] Bytes CardLog() const {
    Bytes log = Long({0xA0});
    std::fill_n(log.begin() + 8, CardsLogged, std::uint8_t{1});
    return log;
  }

  int busy_ = 0;
  std::uint8_t code_ = 0;
};

}  // namespace morvane::test
