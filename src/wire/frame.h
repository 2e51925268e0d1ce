#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

// Frames on the wire. Byte 0 is the code; a code with bit 7 set marks a long frame of 136 bytes,
// any other a short one of 8. Byte 7 is the check byte in both. With S the sum of the plain bytes
// (byte 7 counted as 0), the wire carries S xor FF at byte 7 and every other byte xor a key that
// starts at S and moves on by a constant after each byte. Byte 7 uses up no key step.

namespace morvane::wire {

inline constexpr std::size_t kShortFrame = 8;
inline constexpr std::size_t kLongFrame = 136;

/// The key's step differs by direction: required.
inline constexpr std::uint8_t kStepToMachine = 23;
inline constexpr std::uint8_t kStepFromMachine = 21;

using Frame = std::array<std::uint8_t, kLongFrame>;

[[nodiscard]] constexpr std::size_t FrameSize(std::uint8_t code) {
  return (code & 0x80U) != 0 ? kLongFrame : kShortFrame;
}

[[nodiscard]] constexpr std::uint8_t CodeOf(const Frame& frame) { return frame[0]; }
constexpr void SetCode(Frame& frame, std::uint8_t code) { frame[0] = code; }

/// The check byte of a plain long frame is 0; that of a short one is not sent.
void ClearCheckByte(Frame& frame);

/// Bytes 1 to 6. Those that a command does not name are random.
[[nodiscard]] std::span<std::uint8_t> Filler(Frame& frame);

/// The bytes behind the head of a long frame.
[[nodiscard]] std::span<std::uint8_t> Payload(Frame& frame);

/// Turns the plain frame in `bytes` (8 or 136 of them) into its wire image. What stood at byte 7
/// does not count.
void Scramble(std::span<std::uint8_t> bytes, std::uint8_t step);

/// Turns a whole wire image (8 or 136 bytes) into plain bytes, byte 7 staying as it came; whether
/// the check byte is right.
bool Unscramble(std::span<std::uint8_t> bytes, std::uint8_t step);

/// How long the frame is whose first eight wire bytes are `head`.
[[nodiscard]] std::size_t SizeOnTheWire(std::span<const std::uint8_t> head);

}  // namespace morvane::wire
