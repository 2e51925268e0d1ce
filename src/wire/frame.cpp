#include "wire/frame.h"

namespace morvane::wire {
namespace {

constexpr std::size_t kCheckByte = 7;
constexpr std::size_t kPayload = 8;

std::uint8_t Sum(std::span<const std::uint8_t> bytes) {
  unsigned sum = 0;
  for (const std::uint8_t byte : bytes) sum += byte;
  return static_cast<std::uint8_t>(sum);
}

/// Scrambling and unscrambling are the same step.
void ApplyKey(std::span<std::uint8_t> bytes, std::uint8_t key, std::uint8_t step) {
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    if (i == kCheckByte) continue;
    bytes[i] = static_cast<std::uint8_t>(bytes[i] ^ key);
    key = static_cast<std::uint8_t>(key + step);
  }
}

}  // namespace

void ClearCheckByte(Frame& frame) { frame[kCheckByte] = 0; }

std::span<std::uint8_t> Filler(Frame& frame) {
  return std::span(frame).first(kCheckByte).subspan(1);
}

std::span<std::uint8_t> Payload(Frame& frame) { return std::span(frame).subspan(kPayload); }

void Scramble(std::span<std::uint8_t> bytes, std::uint8_t step) {
  bytes[kCheckByte] = 0;
  const std::uint8_t sum = Sum(bytes);
  ApplyKey(bytes, sum, step);
  bytes[kCheckByte] = static_cast<std::uint8_t>(sum ^ 0xFFU);
}

bool Unscramble(std::span<std::uint8_t> bytes, std::uint8_t step) {
  ApplyKey(bytes, static_cast<std::uint8_t>(bytes[kCheckByte] ^ 0xFFU), step);
  return Sum(bytes) == 0xFF;
}

std::size_t SizeOnTheWire(std::span<const std::uint8_t> head) {
  // The check byte carries the key of byte 0.
  return FrameSize(static_cast<std::uint8_t>(head[0] ^ head[kCheckByte] ^ 0xFFU));
}

}  // namespace morvane::wire
