#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

// Frames on the wire. Byte 0 is the code; a code with bit 7 set marks a long frame of 136 bytes,
// any other a short one of 8. Byte 7 is the check byte in both. With S the sum of the plain bytes
// (byte 7 counted as 0), the wire carries S xor FF at byte 7 and every other byte xor a key that
// starts at S and moves on by a constant after each byte. Byte 7 uses up no key step.

namespace morvane::machine {

inline constexpr std::size_t kShortFrame = 8;
inline constexpr std::size_t kLongFrame = 136;
inline constexpr std::size_t kCheckByte = 7;
inline constexpr std::size_t kPayload = 8;  ///< the first payload byte of a long frame
inline constexpr std::uint8_t kLongBit = 0x80;

/// The key's step differs by direction: required.
inline constexpr std::uint8_t kStepToMachine = 23;
inline constexpr std::uint8_t kStepFromMachine = 21;

using Frame = std::array<std::uint8_t, kLongFrame>;

[[nodiscard]] constexpr std::size_t FrameSize(std::uint8_t code) {
  return (code & kLongBit) != 0 ? kLongFrame : kShortFrame;
}

[[nodiscard]] std::uint8_t Sum(std::span<const std::uint8_t> bytes);

/// The running key of one frame; it goes on over several calls.
class KeyStream {
 public:
  KeyStream(std::uint8_t start, std::uint8_t step) : key_(start), step_(step) {}
  /// Scrambles or unscrambles `bytes` in place.
  void Apply(std::span<std::uint8_t> bytes);

 private:
  std::uint8_t key_;
  std::uint8_t step_;
};

/// Turns the plain frame in `bytes` (8 or 136 of them) into its wire image. What stood at byte 7
/// does not count.
void Scramble(std::span<std::uint8_t> bytes, std::uint8_t step);

/// Turns a whole wire image (8 or 136 bytes) into plain bytes, byte 7 staying as it came; whether
/// the check byte is right.
bool Unscramble(std::span<std::uint8_t> bytes, std::uint8_t step);

/// Whether the plain bytes and the check byte off the wire belong together.
[[nodiscard]] bool CheckHolds(std::span<const std::uint8_t> bytes);

/// Big-endian numbers in a frame, most significant byte at `at`.
void PutBig(Frame& frame, std::size_t at, std::size_t bytes, std::uint32_t value);
[[nodiscard]] std::uint32_t GetBig(const Frame& frame, std::size_t at, std::size_t bytes);

}  // namespace morvane::machine
