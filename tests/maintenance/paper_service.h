#pragma once

#include <algorithm>
#include <array>
#include <functional>

#include "support/scripted_bridge.h"

namespace morvane::maintenance {

/// A machine on paper that has an answer to all that a service file asks, each number another one.
/// Written from the byte tables by hand.
struct PaperService {
  std::uint8_t FirmwareMajor = 2;
  std::uint8_t FirmwareMinor = 0x90;
  std::uint8_t Hardware = 0x7F;
  std::uint8_t Marker = 23;                                     ///< of the focus
  std::array<std::uint8_t, 5> ErrorVerdict{99, 10, 1, 44, 62};  ///< time, rank, suit, ...
  bool Labelled = false;                                        ///< what its buffer holds

  [[nodiscard]] static std::uint8_t Grey(int x, int y) { return Low(x + 2 * y); }
  [[nodiscard]] static std::uint8_t Label(int x, int y) { return Low((x + y) % 4); }
  [[nodiscard]] static std::uint8_t ErrorGrey(int x, int y) { return Low(3 * x + y); }

  /// The wire bytes of the reply; empty: silence.
  [[nodiscard]] test::Bytes ReplyTo(const test::Bytes& plain) {
    const test::Bytes reply = Plain(plain);
    return reply.empty() ? reply : test::OnTheWire(reply, 21);
  }

 private:
  static std::uint8_t Low(int value) { return static_cast<std::uint8_t>(value); }

  test::Bytes Plain(const test::Bytes& plain) {
    using test::Short;
    const std::uint8_t which = plain[1];
    switch (plain[0]) {
      case 0x1A:
        return Short({0x1A, FirmwareMajor, FirmwareMinor, 1, 0x20, 4});
      case 0x12:  // 4711; made on 14 June 2019
        return which == 1 ? Short({0x12, 1, 0x12, 0x67, 0, Hardware})
                          : Short({0x12, 2, 14, 6, 0x07, 0xE3});
      case 0x17:
        return Short({0x17, 11, 12, 13, 14, 15, 0xB1});
      case 0x1B:
        return Sensor(which);
      case 0x11:  // sub-code s: 10 s + 1, 10 s + 2 ...
        return Short({0x11, which, Low(10 * which + 1), Low(10 * which + 2), Low(10 * which + 3),
                      Low(10 * which + 4), Low(10 * which + 5)});
      case 0x23:
        return Short({0x23, 37});
      case 0x32:
        return Stored(plain[2]);
      case 0x33:
        return Counters(plain[2]);
      case 0x14:
        return Short({0x14, which, Low(0x10 * which + 1), Low(0x10 * which + 2),
                      Low(0x10 * which + 3), Low(0x10 * which + 4)});
      case 0x1E:
        return Payload({0x9E}, [](int i) { return Low(i + 1); });
      default:
        return Camera(plain);
    }
  }

  test::Bytes Camera(const test::Bytes& plain) {
    using test::Short;
    const int y = plain[1];
    switch (plain[0]) {
      case 0x0A:
        Labelled = false;
        return Short({0x0A, 1, 2, 77, 0, Marker, 11});
      case 0x15:
        Labelled = true;
        return Short({0x15, 0, 41, 14, 2, 46, 0});
      case 0x0F:
        return Short({0x0F, 5, 6, 10, 20, 30, 50});
      case 0x10:
        return Short({0x10, 47, 0, 11, 32, 60, 93});
      case 0x01:
        return Payload({0x81, plain[1]},
                       [&](int x) { return Labelled ? Label(x, y) : Grey(x, y); });
      case 0x02:
        return Payload({0x82, plain[1]}, [&](int x) { return ErrorGrey(x, y); });
      case 0x25:
        return Short({0x25, 0, ErrorVerdict[0], ErrorVerdict[1], ErrorVerdict[2], ErrorVerdict[3],
                      ErrorVerdict[4]});
      default:
        return {};
    }
  }

  /// 14000 is 32767 - 18767, which is 0x494F, low byte first; and so on in steps of 100.
  static test::Bytes Sensor(std::uint8_t selector) {
    using test::Short;
    switch (selector) {
      case 0:
        return Short({0x1B, 0x80, 0x4F, 0x49, 0xEB, 0x48});  // 14000, 14100
      case 1:
        return Short({0x1B, 0x81, 0x87, 0x48, 0xFF, 0x7F});  // 14200, 0
      case 2:  // 282 x 0.00322265 - 0.4 = 0.50879 V: 260.9 tenths; 628 x 0.381884 = 239.8
        return Short({0x1B, 0x82, 0x1A, 0x01, 0x74, 0x02});
      case 4:  // 23 is the second label that there is
        return Short({0x1B, 0x84, 23});
      default:
        return Short({0x1B, static_cast<std::uint8_t>(0x80 | selector)});
    }
  }

  static test::Bytes Stored(std::uint8_t area) {
    test::Bytes reply = test::Long({0xB2, 0, area});
    reply[40] = 0x01;
    reply[41] = 0x20;
    for (std::size_t i = 0; area == 0xE0 && i < 8; ++i) reply[18 + 10 * i] = Low(0xA0 + int(i));
    return reply;
  }

  /// Counter 32 k + j of page k is 70000 (k + 1) + j.
  static test::Bytes Counters(std::uint8_t page) {
    test::Bytes reply = test::Long({0xB3, 0, page});
    for (std::size_t j = 0; j < 32; ++j) {
      const std::size_t value = std::size_t{70000} * (page + 1U) + j;
      for (std::size_t b = 0; b < 4; ++b) {
        reply[8 + 4 * j + b] = static_cast<std::uint8_t>(value >> (24 - 8 * b));
      }
    }
    return reply;
  }

  template <typename Value>
  static test::Bytes Payload(const test::Bytes& head, Value value) {
    test::Bytes reply = test::Long(head);
    for (int i = 0; i < 128; ++i) reply[8 + static_cast<std::size_t>(i)] = value(i);
    return reply;
  }
};

}  // namespace morvane::maintenance
