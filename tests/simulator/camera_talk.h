#pragma once

#include <deque>
#include <map>
#include <vector>

#include "simulator/talk.h"

namespace morvane::simulator {

/// A picture as a program has fetched it: rows of 128 bytes, empty where a line is missing.
using Rows = std::vector<Bytes>;

struct Bounds {
  int Left = 999;
  int Right = -1;
  int Top = 999;
  int Bottom = -1;
  bool operator==(const Bounds&) const = default;
};

inline std::ostream& operator<<(std::ostream& out, const Bounds& box) {
  return out << box.Left << ".." << box.Right << " x " << box.Top << ".." << box.Bottom;
}

/// The camera of a machine, talked to in plain frames; its LEDs and its power are on.
class CameraTalk : public Talk {
 public:
  CameraTalk() : CameraTalk(Fast()) {}
  explicit CameraTalk(const Options& options) : Talk(options) { Ask({23, 48, 0}); }

  Rows Fetch(std::uint8_t code = 1) {
    Rows rows;
    for (int y = 0; y < 192; ++y) {
      const Bytes reply = Ask({code, static_cast<std::uint8_t>(y)});
      const bool good = reply.size() == 136 && reply[0] == code + 128 && reply[1] == y;
      rows.push_back(good ? Bytes(reply.begin() + 8, reply.end()) : Bytes());
    }
    return rows;
  }
  Rows Captured(std::uint8_t index = 0) {
    EXPECT_EQ(Ask({10, index, 0, 0}).size(), 8U);
    return Fetch();
  }
  Rows CapturedAt(int x, int y, std::uint8_t index = 0) {
    EXPECT_EQ(Ask({10, index, 0, 23, Byte(x), Byte(y)}).size(), 8U);
    return Fetch();
  }
  /// Bytes 3, 4 and 6 of the verdict: rank, suit, error.
  Bytes Recognised(std::uint8_t index = 0, std::uint8_t font = 0, std::uint8_t national = 0) {
    return Short(Ask({21, national, 0, font, index, 0, 0}));
  }
  Bytes Tried(int x, int y, std::uint8_t index = 0, int startX = 66, int startY = 60) {
    return Short(Ask({34, Byte(x), Byte(y), 0, index, Byte(startX), Byte(startY)}));
  }
  /// The frame of a measurement, 15 or 16, turned into the ink that it stands round.
  Bounds Measured(std::uint8_t code) {
    const Bytes reply = Ask({code, 1, 2, 3, 4, 5, 6});
    if (reply.size() != 8) return {};
    return {reply[3] + 1, reply[4] - 1, reply[5] + 1, reply[6] - 1};
  }
  void WriteBlock(const Bytes& plain) {
    Write(ToWire(plain));
    EXPECT_TRUE(Read(8).empty());
  }

 private:
  static std::uint8_t Byte(int value) { return static_cast<std::uint8_t>(value); }
  static Bytes Short(const Bytes& verdict) {
    if (verdict.size() != 8 || verdict[0] != 21) return {};
    return {verdict[3], verdict[4], verdict[6]};
  }
};

/// The bounds of what hangs together, from above, in a picture of ink darker than `level`; pieces
/// that have rows in common are one.
inline std::vector<Bounds> Shapes(const Rows& rows, int level = 120) {
  std::vector<std::vector<bool>> ink(192, std::vector<bool>(128));
  for (std::size_t y = 0; y < 192; ++y) {
    for (std::size_t x = 0; x < 128; ++x) ink[y][x] = rows.at(y).at(x) < level;
  }
  std::vector<Bounds> shapes;
  for (int y = 0; y < 192; ++y) {
    for (int x = 0; x < 128; ++x) {
      std::deque<std::pair<int, int>> waiting{{x, y}};
      Bounds box;
      while (!waiting.empty()) {
        const auto [px, py] = waiting.front();
        waiting.pop_front();
        if (px < 0 || py < 0 || px > 127 || py > 191) continue;
        auto cell = ink[static_cast<std::size_t>(py)][static_cast<std::size_t>(px)];
        if (!cell) continue;
        cell = false;
        box = {std::min(box.Left, px), std::max(box.Right, px), std::min(box.Top, py),
               std::max(box.Bottom, py)};
        for (const auto& [dx, dy] :
             {std::pair{1, 0}, {-1, 0}, {0, 1}, {0, -1}, {1, 1}, {1, -1}, {-1, 1}, {-1, -1}}) {
          waiting.emplace_back(px + dx, py + dy);
        }
      }
      if (box.Right < 0) continue;
      if (!shapes.empty() && box.Top <= shapes.back().Bottom) {
        Bounds& last = shapes.back();
        last = {std::min(last.Left, box.Left), std::max(last.Right, box.Right),
                std::min(last.Top, box.Top), std::max(last.Bottom, box.Bottom)};
      } else {
        shapes.push_back(box);
      }
    }
  }
  return shapes;
}

}  // namespace morvane::simulator
