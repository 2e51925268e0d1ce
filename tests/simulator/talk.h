#pragma once

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <numeric>
#include <random>
#include <vector>

#include "model/board.h"
#include "simulator/simulated_machine.h"
#include "support/virtual_time.h"

namespace morvane::simulator {

using Bytes = std::vector<std::uint8_t>;

// The scrambling, written here once more from the byte tables, so that the simulator and its tests
// can't share a mistake.
inline Bytes Keyed(Bytes bytes, unsigned key, unsigned step) {
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    if (i == 7) continue;
    bytes[i] = static_cast<std::uint8_t>(bytes[i] ^ (key & 255U));
    key += step;
  }
  return bytes;
}

inline unsigned SumOf(const Bytes& bytes) {
  return std::accumulate(bytes.begin(), bytes.end(), 0U) & 255U;
}

/// The wire image of a plain frame of 8 or 136 bytes (byte 7 is filled in).
inline Bytes ToWire(Bytes plain, unsigned step = 23) {
  plain.resize(plain.at(0) >= 0x80 ? 136 : 8);
  plain[7] = 0;
  const unsigned sum = SumOf(plain);
  Bytes wire = Keyed(plain, sum, step);
  wire[7] = static_cast<std::uint8_t>(sum ^ 255U);
  return wire;
}

/// A program card's byte in a long frame.
inline std::size_t ByteOfCard(int card) {
  const int at = card <= 13   ? 8 + 13 - card
                 : card <= 26 ? 21 + 26 - card
                 : card <= 39 ? 34 + 39 - card
                              : 47 + 52 - card;
  return static_cast<std::size_t>(at);
}

/// A plain CmdDeal: the hands' pockets are 4 North, 3 East, 1 South, 2 West.
inline Bytes DealFrame(const Board& board, bool goOn = false) {
  constexpr std::array<std::uint8_t, 5> kPockets{0, 4, 3, 1, 2};
  Bytes plain(136);
  plain[0] = 0x98;
  plain[1] = goOn ? 1 : 0;
  plain[4] = 11;
  plain[5] = 36;
  for (int card = 1; card <= 52; ++card) {
    plain[ByteOfCard(card)] = kPockets[board.Cards[static_cast<std::size_t>(card)]];
  }
  return plain;
}

inline Board RandomBoard(std::uint64_t seed) {
  std::mt19937_64 engine(seed);
  Board board;
  for (std::size_t card = 1; card <= 52; ++card) {
    board.Cards[card] = static_cast<std::uint8_t>((card - 1) % 4 + 1);
  }
  for (std::size_t left = 52; left > 1; --left) {
    std::swap(board.Cards[left], board.Cards[1 + engine() % left]);
  }
  return board;
}

/// The program's end of the line: it opens the machine and talks plain frames to it.
class Talk {
 public:
  Talk() : Talk(Fast(1)) {}
  explicit Talk(const Options& options) : Machine(options, Clock) {
    EXPECT_EQ(Machine.Open(0, handle_), 0);
    EXPECT_EQ(Machine.SetTimeouts(200, 200), 0);
  }
  /// As fast as asked, with a pack that is the same in every run of the test.
  static Options Fast(std::uint64_t seed = 1) {
    Options options;
    options.Speed = 0.0;
    options.Seed = seed;
    return options;
  }

  void Write(const Bytes& wire) {
    std::uint32_t written = 0;
    EXPECT_EQ(Machine.Write(handle_, wire, written), 0);
    EXPECT_EQ(written, wire.size());
  }
  /// What arrives when `count` bytes are asked for.
  Bytes Read(std::size_t count) {
    Bytes bytes(count);
    std::uint32_t read = 0;
    const auto status = Machine.Read(handle_, bytes, read);
    EXPECT_EQ(status, read == count ? UsbXpress::kSuccess : UsbXpress::kReadTimedOut);
    bytes.resize(read);
    return bytes;
  }
  void Flush() { EXPECT_EQ(Machine.FlushBuffers(handle_, 1, 1), 0); }

  /// The plain reply that a program would take; empty, and the line flushed, when there is none.
  Bytes Receive() {
    Bytes wire = Read(8);
    if (wire.size() == 8) {
      const unsigned key = wire[7] ^ 255U;
      if (((wire[0] ^ key) & 0x80U) != 0) {
        const Bytes rest = Read(128);
        wire.insert(wire.end(), rest.begin(), rest.end());
      }
      const Bytes plain = Keyed(wire, key, 21);
      if ((plain.size() == 8) == (plain[0] < 0x80) && SumOf(plain) == 255) return plain;
    }
    Flush();
    return {};
  }
  /// One exchange, without a second try.
  Bytes Ask(const Bytes& plain) {
    Write(ToWire(plain));
    return Receive();
  }
  Bytes Status(std::uint8_t flags = 0) { return Ask({0x19, flags, 0, 0, 0, 0, 0, 0}); }
  std::uint8_t State() { return Status().at(1); }
  /// Polls until the machine is not busy any more; its state byte.
  std::uint8_t PollToEnd() {
    for (int polls = 0; polls < 100'000; ++polls) {
      const Bytes reply = Status();
      if (reply.empty()) return 0xFE;
      if (reply.at(1) <= 0xF0) return reply.at(1);
    }
    ADD_FAILURE() << "the run never ends";
    return 0xFE;
  }
  bool Accepted(const Bytes& plain) {
    const Bytes reply = Ask(plain);
    return !reply.empty() && reply[0] == 0x18;
  }

  test::VirtualClock Clock;
  SimulatedMachine Machine;

 private:
  UsbXpress::Handle handle_ = -1;
};

/// Whether the pockets hold exactly the cards of `board`.
inline testing::AssertionResult LiesAs(const SimulatedMachine& machine, const Board& board) {
  const auto hands = machine.CardsByHand();
  for (std::size_t hand = 1; hand <= 4; ++hand) {
    if (hands[hand].size() != 13) {
      return testing::AssertionFailure() << "hand " << hand << ": " << hands[hand].size();
    }
    for (const int card : hands[hand]) {
      if (board.Cards[static_cast<std::size_t>(card)] != hand) {
        return testing::AssertionFailure() << "card " << card << " lies in hand " << hand;
      }
    }
  }
  return testing::AssertionSuccess();
}

}  // namespace morvane::simulator
