#include "wire/frame.h"

namespace morvane::machine {

std::uint8_t Sum(std::span<const std::uint8_t> bytes) {
  unsigned sum = 0;
  for (const std::uint8_t byte : bytes) sum += byte;
  return static_cast<std::uint8_t>(sum);
}

void KeyStream::Apply(std::span<std::uint8_t> bytes) {
  for (std::uint8_t& byte : bytes) {
    byte = static_cast<std::uint8_t>(byte ^ key_);
    key_ = static_cast<std::uint8_t>(key_ + step_);
  }
}

void Scramble(std::span<std::uint8_t> bytes, std::uint8_t step) {
  bytes[kCheckByte] = 0;
  const std::uint8_t sum = Sum(bytes);
  KeyStream key(sum, step);
  key.Apply(bytes.first(kCheckByte));
  key.Apply(bytes.subspan(kPayload));
  bytes[kCheckByte] = static_cast<std::uint8_t>(sum ^ 0xFFU);
}

bool Unscramble(std::span<std::uint8_t> bytes, std::uint8_t step) {
  KeyStream key(static_cast<std::uint8_t>(bytes[kCheckByte] ^ 0xFFU), step);
  key.Apply(bytes.first(kCheckByte));
  key.Apply(bytes.subspan(kPayload));
  return CheckHolds(bytes);
}

bool CheckHolds(std::span<const std::uint8_t> bytes) { return Sum(bytes) == 0xFF; }

void PutBig(Frame& frame, std::size_t at, std::size_t bytes, std::uint32_t value) {
  for (std::size_t i = bytes; i > 0; --i, value >>= 8U) {
    frame[at + i - 1] = static_cast<std::uint8_t>(value);
  }
}

std::uint32_t GetBig(const Frame& frame, std::size_t at, std::size_t bytes) {
  std::uint32_t value = 0;
  for (std::size_t i = 0; i < bytes; ++i) value = value << 8U | frame[at + i];
  return value;
}

}  // namespace morvane::machine
